#include "host/managers/FileDownloadMgr.h"

#include <QDir>

#include "sdk/basecore/ManagerNames.h"

namespace workbench {
namespace {

constexpr int32_t kStoredFile = 1;

}  // namespace

CFileDownloadMgr::CFileDownloadMgr(PlatformClient& client, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject,
                                   ProgressDialog& progress, std::chrono::milliseconds patience)
    : CMgrObject(BASECORE::NAMES::kFileDownload),
      m_client(client),
      m_currentProject(currentProject),
      m_progress(progress),
      m_patience(patience) {}

bool CFileDownloadMgr::Download(const BASEPACKAGE::DownloadRequest& request, std::wstring& message) {
    const std::wstring deptId = request.deptId.empty() ? m_currentProject.GetCurDeptId() : request.deptId;
    if (request.kind != kStoredFile || request.fileKey.empty() || request.path.empty() || deptId.empty()) {
        message = (deptId.empty() ? tr("请先打开工程") : tr("不支持的下载方式")).toStdWString();
        return false;
    }
    const ProgressDialog::Scope shown(m_progress, tr("正在下载文件，请稍后..."), nullptr);
    const Answer answer = m_client.download(
        "/rs/platform/files/" + QUrl::toPercentEncoding(QString::fromStdWString(request.fileKey)),
        queryOf({{"deptId", deptId}}), {QDir::fromNativeSeparators(QString::fromStdWString(request.path)), m_patience});
    message = answer.text.toStdWString();
    return answer.ok();
}

}  // namespace workbench
