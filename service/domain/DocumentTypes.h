#pragma once

#include <span>
#include <string_view>

namespace disclosure {

/// A kind of files, and the extensions it goes by, in small letters.
struct DocumentType {
    std::string_view name;
    std::span<const std::string_view> extensions;
};

/// Every type there is. What has none of their extensions is not taken.
std::span<const DocumentType> documentTypes();

}  // namespace disclosure
