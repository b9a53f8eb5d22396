#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace disclosure {

/// The text with every percent sequence replaced by its byte; nothing when one is no sequence.
std::optional<std::string> percentDecoded(std::string_view text);

/// The text with a percent sequence for every byte but ASCII letters, digits and - . _ ~
std::string percentEncoded(std::string_view text);

}  // namespace disclosure
