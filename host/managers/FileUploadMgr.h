#pragma once

#include <chrono>

#include <QCoreApplication>

#include "host/managers/ProgressDialog.h"
#include "host/platform/PlatformClient.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IKpxCurProjectMgr.h"
#include "sdk/packages/IKpxFileUploadMgr.h"

namespace workbench {

/// How long a transfer may stand still.
inline constexpr std::chrono::seconds kTransferPatience{30};

/// Sends files to the store of the current project's department, with a progress bar and a button to cancel.
class CFileUploadMgr final : public BASECORE::FRAME::CMgrObject, public BASEPACKAGE::IKpxFileUploadMgr {
    Q_DECLARE_TR_FUNCTIONS(CFileUploadMgr)

public:
    CFileUploadMgr(PlatformClient& client, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject,
                   ProgressDialog& progress, std::chrono::milliseconds patience = kTransferPatience);

    bool IsUploading() const override { return m_isUploading; }
    /// `timeoutSeconds` limits how long nothing moves; the whole may take any time.
    void Upload(const BASEPACKAGE::UploadRequest& request, BASEPACKAGE::UploadResult& result, QWidget* owner,
                int32_t timeoutSeconds) override;

private:
    /// The message of a failure; empty when the file is in the store.
    QString upload(const BASEPACKAGE::UploadRequest& request, BASEPACKAGE::UploadResult& result, QWidget* owner,
                   std::chrono::milliseconds patience);

    PlatformClient& m_client;
    const PROJECTPACKAGE::IKpxCurProjectMgr& m_currentProject;
    ProgressDialog& m_progress;
    std::chrono::milliseconds m_patience;
    bool m_isUploading = false;
};

}  // namespace workbench
