#pragma once

#include <chrono>

#include <QCoreApplication>

#include "host/managers/FileUploadMgr.h"
#include "sdk/packages/IKpxFileDownloadMgr.h"

namespace workbench {

/// Fetches files of the store, with a progress bar and a button to cancel.
class CFileDownloadMgr final : public BASECORE::FRAME::CMgrObject, public BASEPACKAGE::IKpxFileDownloadMgr {
    Q_DECLARE_TR_FUNCTIONS(CFileDownloadMgr)

public:
    CFileDownloadMgr(PlatformClient& client, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject,
                     ProgressDialog& progress, std::chrono::milliseconds patience = kTransferPatience);

    bool Download(const BASEPACKAGE::DownloadRequest& request, std::wstring& message) override;

private:
    PlatformClient& m_client;
    const PROJECTPACKAGE::IKpxCurProjectMgr& m_currentProject;
    ProgressDialog& m_progress;
    std::chrono::milliseconds m_patience;
};

}  // namespace workbench
