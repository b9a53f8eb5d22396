#pragma once

#include <cstdint>
#include <string>

#include "sdk/Export.h"

/// Helpers for local files; a path may use either kind of slash, unless there is a file with backslashes in its name.
namespace BASETOOLS {

/// Without the folder.
HOSTSDK_API std::wstring GetFileName(const std::wstring& path);

/// The text behind the last dot of the file name, in its own case; empty when there is none.
HOSTSDK_API std::wstring GetFileExtion(const std::wstring& path);  // spelled so

/// In bytes; -1 when there is no such file.
HOSTSDK_API int64_t GetFileSize(const std::wstring& path);

}  // namespace BASETOOLS
