#pragma once

#include <vector>

#include <QMainWindow>
#include <QTimer>

#include "sdk/packages/IProjectDataMgr.h"

class QComboBox;
class QDockWidget;
class QLabel;
class QPlainTextEdit;
class QStackedWidget;
class QToolBar;
class QToolButton;

namespace BASECORE::CMD {
class ICmdObject;
}

namespace workbench {

class BellButton;

/// The workbench's window: commands and projects in the tool bar, what is open in the middle, the log on demand, and a
/// status line that tells whether the service answers.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();

    /// The command, known under `name`, must live until `removeCommands` or the window's end.
    void addCommand(BASECORE::CMD::ICmdObject& command, const std::wstring& name);
    void removeCommands();
    /// A page that the user can have in the middle instead of what is there; taken over.
    void addPage(QWidget* page, const QIcon& icon, const QString& title, const QKeySequence& keys);
    /// Gives the keyboard to the first command, once the window is shown.
    void focusCommands();
    /// An empty name is nobody: then there is nothing to be run and nothing to be chosen.
    void setUser(const QString& realName);
    void setProjects(const std::vector<PROJECTPACKAGE::ProjectRecord>& projects);
    /// Shows which project is open; an empty name none. `index` is its place among the projects, or -1.
    void showProject(int index, const QString& name, const QString& deptName);
    void showServiceState(bool alive, const QString& text);
    void showUnread(int count);
    void appendLog(const QString& line);

    /// Starts the command and logs why it did not start.
    static void run(BASECORE::CMD::ICmdObject& command, const QString& name);

signals:
    /// The user chose the project with this index; `showProject` tells what became of it.
    void projectChosen(int index);
    /// The user wants the projects to be read again.
    void projectsWanted();
    /// Once, when the window has the size that it was shown for.
    void settled();
    /// The user wants to see the messages.
    void messagesWanted();
    /// Somebody else wants to log in, or anybody after a logout.
    void userChangeWanted();
    void logOutWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// The button can be reached with Tab and pressed with Enter, too.
    void makeReachable(QWidget* button);
    QWidget* createStartPage();
    QDockWidget* createLogPane();
    void createUserMenu();
    void createStatusLine();

    QToolBar* m_commands;
    QToolBar* m_pages;
    QStackedWidget* m_middle;
    QComboBox* m_projects;
    QToolButton* m_account;
    BellButton* m_bell;
    QLabel* m_projectTitle;
    QLabel* m_projectDetails;
    QPlainTextEdit* m_log;
    QLabel* m_serviceDot;
    QLabel* m_serviceText;
    QLabel* m_user;
    QTimer m_settling;
    bool m_isSettled = false;
};

}  // namespace workbench
