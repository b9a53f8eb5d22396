#pragma once

#include <array>
#include <cstdint>

/// What a task's documents may be. The service holds its own users to the same.
namespace DISCLOSUREPACKAGE {

/// Extensions of local files, lower case.
inline constexpr std::array kDocumentExtensions{L"doc",  L"docx", L"xls", L"xlsx", L"ppt", L"pptx",
                                                L"pdf",  L"txt",  L"mp4", L"avi",  L"wmv", L"webm",
                                                L"jpeg", L"png",  L"bmp", L"jpg",  L"dwg"};
/// Of one local file; a fraction above it does not count.
inline constexpr int64_t kMostDocumentMiB = 500;
/// Of one task.
inline constexpr std::size_t kMostDocuments = 10;

}  // namespace DISCLOSUREPACKAGE
