#pragma once

#include <cstdint>
#include <string>

#include "sdk/Export.h"

class QWidget;

namespace BASEPACKAGE {

/// What is to be uploaded.
struct UploadRequest {
    int32_t kind = 1;  // 1 a whole local file
    std::wstring path;
    std::wstring folder = L"0";  // the store's folder, "0" its root
    std::wstring name;           // the file's name in the store; empty takes it from the path
};

/// What became of an upload.
struct UploadResult {
    bool success = false;
    std::wstring message;  // for the user, when it failed
    int32_t size = 0;      // bytes
    std::wstring uuid;     // the stored file's key
    std::wstring md5;
};

/// Brings local files to the file store. Registered as "KpxFileUploadMgr".
class HOSTSDK_API IKpxFileUploadMgr {
public:
    virtual bool IsUploading() const = 0;
    /// Returns when the upload has ended; a cancelled one has failed. `owner` null means the main window,
    /// `timeoutSeconds` 0 the host's own limit.
    virtual void Upload(const UploadRequest& request, UploadResult& result, QWidget* owner, int32_t timeoutSeconds) = 0;

protected:
    ~IKpxFileUploadMgr() = default;
};

}  // namespace BASEPACKAGE
