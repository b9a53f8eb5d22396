#pragma once

#include <memory>
#include <vector>

#include "host/log/EventLog.h"
#include "host/managers/ProgressDialog.h"
#include "host/platform/DocumentStore.h"
#include "host/platform/Inbox.h"
#include "host/platform/PlatformClient.h"
#include "host/platform/PlatformData.h"
#include "host/platform/SessionKeeper.h"
#include "host/platform/UnreadWatch.h"
#include "host/shell/BellKey.h"
#include "host/shell/MainWindow.h"
#include "host/shell/Options.h"
#include "host/shell/Registry.h"
#include "host/shell/ServiceWatch.h"
#include "sdk/packages/IKpxProjLoadObserver.h"

namespace workbench {

class CAuthInfoMgr;
class CClientConfigMgr;
class CCurProjectMgr;
class COrgDeptMgr;
class CProjectDataMgr;
class CRestServWebMgr;
class CServiceStateMgr;
class DocumentPane;

/// Puts the workbench together: the managers, the plug-ins, the window.
class Workbench : private PROJECTPACKAGE::IKpxProjLoadObserver {
    Q_DECLARE_TR_FUNCTIONS(Workbench)

public:
    explicit Workbench(Options options);
    ~Workbench() override;
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    /// With the options' user and password, else by the dialog. False when the user gave up or the options' ones were
    /// refused; `why` then tells the reason, and is empty when the user knows it.
    bool logIn(QString& why);
    /// Loads the plug-ins, starts everything and shows the window with a project open. After a login.
    void start();

    Registry& registry() { return m_registry; }
    MainWindow& window() { return m_window; }

private:
    void registerManagers();
    void connectParts();
    bool askToLogInAgain(const QString& reason);
    /// False when a plug-in keeps its project open.
    bool logOut();
    void changeUser();
    /// By the dialog; false when the user gave up.
    bool askToLogIn(const QString& server, const QString& userName, QWidget* owner);
    /// What was known of another user or server is known no more.
    void followLogin();
    void readProjects();
    void openProject(int index);
    void showOpenProject();
    void openLastProject();
    void showMessages();
    /// See MessageDialog::Preparation.
    bool prepareToOpen(const Message& message, QString& why);
    /// Opens a project of the department if the user agrees, unless one is open. The user's own projects may lack it.
    bool switchTo(const std::wstring& deptId, QString& why);
    void runCommand(const QString& name);
    template <class Manager, class... Arguments>
    Manager& add(Arguments&&... arguments);

    // The workbench's own data follows the project before any plug-in hears of it.
    void OnProjectLoaded(PROJECTPACKAGE::IProject* project) override;
    void OnProjectSaved(PROJECTPACKAGE::IProject*) override {}
    void OnProjectClosed(PROJECTPACKAGE::IProject*) override {}
    bool CanLoadProject(PROJECTPACKAGE::IProject*) override { return true; }
    bool CanCloseProject(PROJECTPACKAGE::IProject*) override { return true; }

    Options m_options;
    EventLog m_log;
    PlatformClient m_client;
    SessionKeeper m_keeper{m_client};
    PlatformData m_data{m_client};
    Inbox m_inbox{m_client};
    ServiceWatch m_watch;
    UnreadWatch m_unread{m_client};
    BellKey m_bellKey;
    MainWindow m_window;  // without commands before the registry deletes them
    ProgressDialog m_progress;
    std::unique_ptr<DocumentStore> m_documents;
    Registry m_registry;  // ends the plug-ins before anything above

    // Owned by the registry.
    CClientConfigMgr* m_config = nullptr;
    CRestServWebMgr* m_rest = nullptr;
    CServiceStateMgr* m_state = nullptr;
    CCurProjectMgr* m_currentProject = nullptr;
    COrgDeptMgr* m_departments = nullptr;
    CAuthInfoMgr* m_rights = nullptr;
    CProjectDataMgr* m_projectData = nullptr;

    DocumentPane* m_documentPane = nullptr;  // owned by the window
    std::vector<PROJECTPACKAGE::ProjectRecord> m_projects;
};

}  // namespace workbench
