#pragma once

#include <chrono>

#include "host/documents/DocumentCache.h"
#include "host/documents/DocumentWindow.h"
#include "host/platform/PlatformClient.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IKpxCurProjectMgr.h"
#include "sdk/packages/documents/IKpxDocOperMgr.h"

namespace workbench {

class ProgressDialog;

/// Fetches documents to the cache and shows them in windows of their own.
class CDocOperMgr final : public BASECORE::FRAME::CMgrObject, public DOCUMENTPACKAGE::IKpxDocOperMgr {
    Q_DECLARE_TR_FUNCTIONS(CDocOperMgr)

public:
    /// How much of the disk the cache may take, in MiB; a key of the client's configuration.
    static constexpr wchar_t kCacheMegabytes[] = L"Documents/CacheMegabytes";

    CDocOperMgr(PlatformClient& client, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject,
                ProgressDialog& progress, DocumentCache cache, std::chrono::milliseconds patience,
                DocumentWindow::Launcher launcher = launchOutside);

    bool OpenDocument(const std::wstring& uuid, const std::wstring& md5, const std::wstring& name,
                      const std::wstring& deptId) override;
    /// Fetches the content and has the user choose where it goes.
    void saveDocument(const QString& uuid, const QString& md5, const QString& name, QWidget* owner);

private:
    /// Its path; empty when it could not be fetched, of which the user then knows.
    QString fetch(const QString& uuid, const QString& md5, const QString& name, std::wstring deptId);

    PlatformClient& m_client;
    const PROJECTPACKAGE::IKpxCurProjectMgr& m_currentProject;
    ProgressDialog& m_progress;
    DocumentCache m_cache;
    std::chrono::milliseconds m_patience;
    DocumentWindow::Launcher m_launch;
};

/// The limit of the cache in bytes that the configuration's text means; the usual one where that is no number of
/// megabytes.
qint64 cacheLimit(const std::wstring& megabytes);

}  // namespace workbench
