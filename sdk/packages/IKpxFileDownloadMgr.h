#pragma once

#include <cstdint>
#include <string>

#include "sdk/Export.h"

namespace BASEPACKAGE {

/// What is to be downloaded.
struct DownloadRequest {
    int32_t kind = 1;  // 1 a file of the file store
    std::wstring fileKey;
    std::wstring path;    // where it goes; its folder is made when it is missing
    std::wstring deptId;  // the file's department; empty means the current project's
};

/// Fetches files of the file store. Registered as "KpxFileDownloadMgr".
class HOSTSDK_API IKpxFileDownloadMgr {
public:
    /// Returns when the download has ended; true when the whole file stands at `path`. On failure nothing is there that
    /// was not there before, and `message` says why.
    virtual bool Download(const DownloadRequest& request, std::wstring& message) = 0;

protected:
    ~IKpxFileDownloadMgr() = default;
};

}  // namespace BASEPACKAGE
