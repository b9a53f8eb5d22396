#include "host/managers/DocOperMgr.h"

#include "host/documents/DocumentKind.h"
#include "host/managers/ProgressDialog.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/baseui/DialogOwner.h"
#include "sdk/baseui/MessageBox.h"

namespace workbench {

qint64 cacheLimit(const std::wstring& megabytes) {
    constexpr qint64 kUsual = 1024;
    constexpr qint64 kMost = 1024LL * 1024;
    constexpr qint64 kMiB = 1024LL * 1024;
    bool isNumber = false;
    const qint64 wanted = QString::fromStdWString(megabytes).toLongLong(&isNumber);
    return (isNumber && wanted > 0 && wanted <= kMost ? wanted : kUsual) * kMiB;
}

CDocOperMgr::CDocOperMgr(PlatformClient& client, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject,
                         ProgressDialog& progress, DocumentCache cache, std::chrono::milliseconds patience,
                         DocumentWindow::Launcher launcher)
    : CMgrObject(BASECORE::NAMES::kDocumentOperations),
      m_client(client),
      m_currentProject(currentProject),
      m_progress(progress),
      m_cache(std::move(cache)),
      m_patience(patience),
      m_launch(std::move(launcher)) {}

QString CDocOperMgr::fetch(const QString& uuid, const QString& md5, const QString& name, std::wstring deptId) {
    if (deptId.empty())
        deptId = m_currentProject.GetCurDeptId();
    QString why;
    bool isCancelled = false;
    const auto download = [&](const QString& path) {
        const ProgressDialog::Scope shown(m_progress, tr("正在下载资料，请稍后..."), nullptr);
        const Answer answer = m_client.download("/rs/platform/files/" + QUrl::toPercentEncoding(uuid),
                                                queryOf({{"deptId", deptId}}), {path, m_patience});
        isCancelled = answer.outcome == Outcome::Cancelled;
        return answer.text;
    };
    QString path;
    if (deptId.empty() || uuid.isEmpty())
        why = deptId.empty() ? tr("请先打开工程") : tr("资料没有内容");
    else
        path = m_cache.file(md5, safeExtension(name), download, why);
    if (path.isEmpty() && !isCancelled)
        BASEUI::ShowMessageBox(tr("无法打开“%1”：%2").arg(name, why).toStdWString());
    return path;
}

bool CDocOperMgr::OpenDocument(const std::wstring& uuid, const std::wstring& md5, const std::wstring& name,
                               const std::wstring& deptId) {
    // Before anything else: right after the progress dialog no window is active.
    QWidget* owner = BASEUI::DialogOwner();
    if (!owner && BASECORE::FRAME::GetMainBaseCore())
        owner = BASECORE::FRAME::GetMainBaseCore()->GetMainWindow();
    const QString title = QString::fromStdWString(name);
    const QString path = fetch(QString::fromStdWString(uuid), QString::fromStdWString(md5), title, deptId);
    return !path.isEmpty() && (new DocumentWindow(path, title, owner))->open(m_launch);
}

void CDocOperMgr::saveDocument(const QString& uuid, const QString& md5, const QString& name, QWidget* owner) {
    if (const QString path = fetch(uuid, md5, name, {}); !path.isEmpty())
        DocumentWindow::saveAs(path, name, owner);
}

}  // namespace workbench
