#include "host/shell/Workbench.h"

#include <algorithm>
#include <limits>

#include <QDir>

#include "host/documents/DocumentPane.h"
#include "host/log/Guarded.h"
#include "host/log/Messages.h"
#include "host/managers/AuthInfoMgr.h"
#include "host/managers/CasMgr.h"
#include "host/managers/ClientConfigMgr.h"
#include "host/managers/CurProjectMgr.h"
#include "host/managers/DocConfigMgr.h"
#include "host/managers/DocFileListMgr.h"
#include "host/managers/DocFolderMgr.h"
#include "host/managers/DocOperMgr.h"
#include "host/managers/DocTagMgr.h"
#include "host/managers/FileDownloadMgr.h"
#include "host/managers/FileUploadMgr.h"
#include "host/managers/FunctionLogMgr.h"
#include "host/managers/OrgDeptMgr.h"
#include "host/managers/PathMgr.h"
#include "host/managers/ProjectDataMgr.h"
#include "host/managers/RestServWebMgr.h"
#include "host/managers/ServiceStateMgr.h"
#include "host/managers/WebMgr.h"
#include "host/shell/Icons.h"
#include "host/shell/LoginDialog.h"
#include "host/shell/MessageDialog.h"
#include "host/shell/PlugInLoader.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/baseui/DialogOwner.h"
#include "sdk/baseui/MessageBox.h"
#include "sdk/packages/ServiceLimits.h"
#include "sdk/packages/disclosure/Command.h"

namespace workbench {
namespace {

constexpr char kDefaultService[] = "127.0.0.1:8620";

/// -1 when it is not among them.
template <class Value>
int indexOf(const std::vector<PROJECTPACKAGE::ProjectRecord>& projects, Value PROJECTPACKAGE::ProjectRecord::*field,
            const Value& value) {
    const auto found =
        std::find_if(projects.begin(), projects.end(), [&](const auto& project) { return project.*field == value; });
    return found == projects.end() ? -1 : static_cast<int>(found - projects.begin());
}

}  // namespace

Workbench::Workbench(Options options) : m_options(std::move(options)), m_log(m_options.dataFolder + "/logs") {
    registerManagers();
    connectParts();
}

Workbench::~Workbench() {
    m_window.hide();
    m_window.removeCommands();
    m_currentProject->close();
    m_registry.shutdown();
    m_client.setRecovery({});
    m_keeper.logOut();
}

template <class Manager, class... Arguments>
Manager& Workbench::add(Arguments&&... arguments) {
    auto manager = std::make_unique<Manager>(std::forward<Arguments>(arguments)...);
    Manager& added = *manager;
    m_registry.add(std::move(manager));
    return added;
}

void Workbench::registerManagers() {
    m_config = &add<CClientConfigMgr>(m_options.dataFolder);
    const auto& paths = add<CPathMgr>(m_options.dataFolder, m_options.plugInFolders.first());
    add<CFunctionLogMgr>(m_log);
    add<CWebMgr>(m_keeper);
    m_rest = &add<CRestServWebMgr>(m_keeper, [this](const QString& reason) { return askToLogInAgain(reason); });
    add<CCasMgr>(m_keeper);
    m_currentProject = &add<CCurProjectMgr>();
    m_projectData = &add<CProjectDataMgr>(m_data);
    m_departments = &add<COrgDeptMgr>(m_data);
    m_rights = &add<CAuthInfoMgr>(m_data, *m_currentProject);
    m_state = &add<CServiceStateMgr>();
    const auto limits = PROJECTPACKAGE::ReadServiceLimits(m_config);
    m_client.setPatience(limits.connect);  // its requests are small, and Qt does not tell when it is connected
    add<CFileUploadMgr>(m_client, *m_currentProject, m_progress, limits.silence);
    add<CFileDownloadMgr>(m_client, *m_currentProject, m_progress, limits.silence);

    m_documents = std::make_unique<DocumentStore>(m_client, *m_currentProject);
    add<CDocConfigMgr>(*m_documents);
    add<CDocFileListMgr>(*m_documents);
    add<CDocFolderMgr>(*m_documents, *m_currentProject, *m_projectData);
    add<CDocTagMgr>(*m_documents);
    const DocumentCache cache(QString::fromStdWString(paths.GetCacheFolder()) + "/documents",
                              cacheLimit(m_config->GetValue(CDocOperMgr::kCacheMegabytes)));
    auto& opener = add<CDocOperMgr>(m_client, *m_currentProject, m_progress, cache, limits.silence);
    m_documentPane = new DocumentPane(*m_documents, opener, *m_rights, limits.silence);
    m_window.addPage(m_documentPane, icons::folder(), tr("资料库"), QKeySequence("Ctrl+D"));
    m_state->AddObserver(m_documentPane);
}

void Workbench::connectParts() {
    m_registry.setMainWindow(&m_window);
    m_currentProject->AddProjLoadObserver(this, std::numeric_limits<int>::min());
    m_client.setRecovery([this](const QString& text) {
        return m_rest->RenewSession(BASECORE::NAMES::kServiceKey, text.toStdWString());
    });
    m_client.setTroubleListener([this](const QString& text) { m_watch.reportTrouble(text); });
    QObject::connect(&m_watch, &ServiceWatch::told, &m_window, [this](bool alive, const QString& text) {
        if (alive && !m_state->IsReachable()) {  // what could not be read may be asked for at once
            m_departments->forget();
            m_rights->forget();
        }
        m_state->note(alive, text);
    });
    QObject::connect(&m_watch, &ServiceWatch::told, &m_window, &MainWindow::showServiceState);
    QObject::connect(&m_watch, &ServiceWatch::told, &m_unread, &UnreadWatch::setReachable);
    QObject::connect(&m_unread, &UnreadWatch::counted, &m_window, &MainWindow::showUnread);
    QObject::connect(&m_window, &MainWindow::messagesWanted, &m_window, [this] { showMessages(); });
    QObject::connect(&m_bellKey, &BellKey::pressed, &m_window, [this] { showMessages(); });
    QObject::connect(&m_window, &MainWindow::userChangeWanted, &m_window, [this] { changeUser(); });
    QObject::connect(&m_window, &MainWindow::logOutWanted, &m_window, [this] { logOut(); });
    QObject::connect(&m_window, &MainWindow::projectsWanted, &m_window, [this] {
        readProjects();
        m_documentPane->readAgain();
    });
    QObject::connect(&m_window, &MainWindow::projectChosen, &m_window, [this](int index) { openProject(index); });
}

bool Workbench::logIn(QString& why) {
    QString server = m_options.service;
    if (server.isEmpty())
        server = QString::fromStdWString(m_config->GetValue(CClientConfigMgr::kServer));
    if (server.isEmpty())
        server = kDefaultService;
    if (!m_options.userName.isEmpty() && !m_options.password.isEmpty()) {
        const Answer answer = m_keeper.logIn(server, m_options.userName, m_options.password);
        m_options.password.clear();
        why = answer.text;
        return answer.ok();
    }
    QString userName = m_options.userName;
    if (userName.isEmpty())
        userName = QString::fromStdWString(m_config->GetValue(CClientConfigMgr::kUser));
    return askToLogIn(server, userName, nullptr);
}

bool Workbench::askToLogIn(const QString& server, const QString& userName, QWidget* owner) {
    LoginDialog dialog(m_keeper, server, userName, owner);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    m_config->SetValue(CClientConfigMgr::kServer, dialog.server().toStdWString());
    m_config->SetValue(CClientConfigMgr::kUser, dialog.userName().toStdWString());
    return true;
}

bool Workbench::logOut() {
    if (!m_currentProject->close()) {
        BASEUI::ShowMessageBox(tr("有插件不允许现在关闭工程").toStdWString());
        return false;
    }
    m_keeper.logOut();
    m_projects.clear();
    m_projectData->forget();
    followLogin();
    m_window.setProjects(m_projects);
    showOpenProject();
    return true;
}

void Workbench::changeUser() {
    if (!logOut() || !askToLogIn(m_keeper.address(), {}, &m_window))
        return;
    followLogin();
    readProjects();
}

bool Workbench::askToLogInAgain(const QString& reason) {
    // Above the dialog whose work met the expired session, where the user sees it.
    QWidget* owner = BASEUI::DialogOwner();
    LoginDialog dialog(m_keeper, m_keeper.address(), QString::fromStdWString(m_keeper.user().userName),
                       owner ? owner : &m_window);
    if (m_keeper.session())
        dialog.fixUser();
    dialog.showNote(reason);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    followLogin();
    return true;
}

void Workbench::followLogin() {
    m_departments->forget();
    m_rights->forget();
    m_window.setUser(QString::fromStdWString(m_keeper.user().realName));
    m_window.showUnread(0);
    m_watch.watch(m_keeper.address());
    m_unread.restart();
    m_documentPane->startAnew();
}

void Workbench::start() {
    PlugInLoader(m_registry, m_options.dataFolder).loadAll(m_options.plugInFolders);
    m_registry.start();
    for (const auto& [command, name] : m_registry.commands())
        m_window.addCommand(*command, name);
    for (const QString& line : m_log.history())
        m_window.appendLog(line);
    QObject::connect(&m_log, &EventLog::written, &m_window, &MainWindow::appendLog);
    if (!m_options.command.isEmpty())
        QObject::connect(&m_window, &MainWindow::settled, &m_window, [this] { runCommand(m_options.command); });
    m_window.showMaximized();
    m_window.focusCommands();
    followLogin();
    readProjects();
}

void Workbench::readProjects() {
    m_projectData->forget();
    if (!m_projectData->GetProjects(m_projects))
        qCWarning(messages).noquote() << tr("无法读取工程列表");
    m_window.setProjects(m_projects);
    if (m_currentProject->GetCurProject())
        showOpenProject();
    else
        openLastProject();
}

void Workbench::openLastProject() {
    if (m_projects.empty())
        return;
    const int last = indexOf(m_projects, &PROJECTPACKAGE::ProjectRecord::ppid,
                             QString::fromStdWString(m_config->GetValue(CClientConfigMgr::kProject)).toInt());
    openProject(last < 0 ? 0 : last);
}

void Workbench::openProject(int index) {
    const PROJECTPACKAGE::ProjectRecord& project = m_projects.at(static_cast<std::size_t>(index));
    const PROJECTPACKAGE::IProject* current = m_currentProject->GetCurProject();
    if (!current || current->GetId() != project.ppid) {
        if (m_currentProject->open(project))
            m_config->SetValue(CClientConfigMgr::kProject, std::to_wstring(project.ppid));
        else
            qCWarning(messages).noquote()
                << tr("有插件不允许现在切换到工程 %1").arg(QString::fromStdWString(project.projName));
    }
    showOpenProject();
}

void Workbench::showOpenProject() {
    const PROJECTPACKAGE::IProject* current = m_currentProject->GetCurProject();
    if (!current)
        return m_window.showProject(-1, {}, {});
    std::wstring deptName;
    m_departments->GetDeptName(deptName, current->GetDeptId());
    m_window.showProject(indexOf(m_projects, &PROJECTPACKAGE::ProjectRecord::ppid, current->GetId()),
                         QString::fromStdWString(current->GetName()), QString::fromStdWString(deptName));
}

void Workbench::showMessages() {
    if (!m_keeper.session())
        return;
    // Over a plug-in's window where one is open.
    QWidget* owner = BASEUI::DialogOwner();
    MessageDialog dialog(
        m_inbox, [this](const Message& message, QString& why) { return prepareToOpen(message, why); },
        owner ? owner : &m_window);
    QObject::connect(&dialog, &MessageDialog::unreadChanged, &m_window, [this](int count) {
        m_unread.dropPending();
        m_window.showUnread(count);
    });
    if (dialog.exec() != QDialog::Accepted)
        return;
    // Only now: a command that runs while a request of the workbench waits would hold that up until its window closes.
    if (auto* command = m_registry.command(DISCLOSUREPACKAGE::kCommandName)) {
        const QString name = QString::fromStdWString(DISCLOSUREPACKAGE::kCommandName);
        guarded(name,
                [&] { command->SetParam(DISCLOSUREPACKAGE::kParamTaskId, dialog.chosen().taskId.toStdWString()); });
        MainWindow::run(*command, name);
    }
}

bool Workbench::prepareToOpen(const Message& message, QString& why) {
    if (message.taskId.isEmpty()) {
        BASEUI::ShowMessageBox(tr("任务不存在或已被删除").toStdWString());
        return false;
    }
    if (!m_registry.command(DISCLOSUREPACKAGE::kCommandName)) {
        why = tr("没有加载技术交底插件，无法打开任务");
        return false;
    }
    return switchTo(message.deptId.toStdWString(), why);
}

bool Workbench::switchTo(const std::wstring& deptId, QString& why) {
    if (m_currentProject->GetCurDeptId() == deptId)
        return true;
    const auto find = [&] { return indexOf(m_projects, &PROJECTPACKAGE::ProjectRecord::deptId, deptId); };
    if (find() < 0)
        readProjects();  // it may be new
    const int index = find();
    if (index < 0)
        return true;  // the service knows what a receiver who is no member may see
    const QString name = QString::fromStdWString(m_projects[static_cast<std::size_t>(index)].projName);
    if (BASEUI::ShowMessageBox(tr("该任务属于项目“%1”，是否切换？").arg(name).toStdWString(), nullptr,
                               BASEUI::MessageButtons::OkCancel) != BASEUI::MessageResult::Ok)
        return false;
    openProject(index);
    if (m_currentProject->GetCurDeptId() == deptId)
        return true;
    why = tr("有插件不允许现在切换到工程 %1").arg(name);
    return false;
}

void Workbench::OnProjectLoaded(PROJECTPACKAGE::IProject*) {
    m_unread.restart();
    m_departments->forget();
    m_rights->forget();
    m_documentPane->startAnew();
}

void Workbench::runCommand(const QString& name) {
    if (auto* command = m_registry.command(name.toStdWString()))
        MainWindow::run(*command, name);
    else
        qCCritical(messages).noquote() << tr("没有名为 %1 的命令").arg(name);
}

}  // namespace workbench
