#include "host/managers/FileUploadMgr.h"

#include <limits>

#include <QFileInfo>
#include <QScopedValueRollback>

#include "host/platform/SendFile.h"
#include "sdk/basecore/ManagerNames.h"

namespace workbench {
namespace {

constexpr int32_t kWholeFile = 1;
constexpr wchar_t kRootFolder[] = L"0";

/// The file as it is called, or by a path of the other system's writing.
QFileInfo fileAt(const std::wstring& path) {
    const QString given = QString::fromStdWString(path);
    return QFileInfo(QFileInfo::exists(given) ? given : QString(given).replace('\\', '/'));
}

}  // namespace

CFileUploadMgr::CFileUploadMgr(PlatformClient& client, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject,
                               ProgressDialog& progress, std::chrono::milliseconds patience)
    : CMgrObject(BASECORE::NAMES::kFileUpload),
      m_client(client),
      m_currentProject(currentProject),
      m_progress(progress),
      m_patience(patience) {}

void CFileUploadMgr::Upload(const BASEPACKAGE::UploadRequest& request, BASEPACKAGE::UploadResult& result,
                            QWidget* owner, int32_t timeoutSeconds) {
    result = {};
    if (m_isUploading) {
        result.message = tr("正在上传另一个文件，请稍后再试").toStdWString();
        return;
    }
    const QScopedValueRollback<bool> uploading(m_isUploading, true);
    const QString failure =
        upload(request, result, owner, timeoutSeconds > 0 ? std::chrono::seconds(timeoutSeconds) : m_patience);
    result.success = failure.isEmpty();
    result.message = failure.toStdWString();
}

QString CFileUploadMgr::upload(const BASEPACKAGE::UploadRequest& request, BASEPACKAGE::UploadResult& result,
                               QWidget* owner, std::chrono::milliseconds patience) {
    if (request.kind != kWholeFile || request.folder != kRootFolder)
        return tr("不支持的上传方式");
    const std::wstring deptId = m_currentProject.GetCurDeptId();
    if (deptId.empty())
        return tr("请先打开工程");
    const QFileInfo file = fileAt(request.path);
    if (file.size() > std::numeric_limits<int32_t>::max())
        return tr("文件过大，无法上传");
    const std::wstring name = request.name.empty() ? file.fileName().toStdWString() : request.name;

    const ProgressDialog::Scope shown(m_progress, tr("正在上传文件，请稍后..."), owner);
    const Answer answer = sendFile(m_client, deptId, name, {file.filePath(), patience});
    if (!answer.ok())
        return answer.text;
    result.size = static_cast<int32_t>(answer.size);
    result.uuid = answer.result.toObject()["uuid"].toString().toStdWString();
    result.md5 = answer.md5.toStdWString();
    return {};
}

}  // namespace workbench
