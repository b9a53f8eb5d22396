#include "host/shell/MainWindow.h"

#include <QDockWidget>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include "host/log/Guarded.h"
#include "host/log/Messages.h"
#include "host/shell/BellButton.h"
#include "host/shell/FlatCombo.h"
#include "host/shell/Icons.h"
#include "host/shell/Look.h"
#include "sdk/basecore/ICmdObject.h"
#include "sdk/packages/disclosure/Command.h"

namespace workbench {
namespace {

constexpr double kShareOfScreen = 0.85;
constexpr int kLogLines = 500;
constexpr int kNumberedCommands = 9;
constexpr int kSettlingMs = 200;

struct CommandTitle {
    const wchar_t* name;
    const char* title;
};

constexpr CommandTitle kTitles[] = {
    {DISCLOSUREPACKAGE::kCommandName, QT_TRANSLATE_NOOP("workbench::MainWindow", "技术交底")},
};

QString titleOf(const std::wstring& name) {
    for (const CommandTitle& entry : kTitles)
        if (name == entry.name)
            return MainWindow::tr(entry.title);
    return QString::fromStdWString(name);
}

QWidget* stretch() {
    auto* widget = new QWidget;
    widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return widget;
}

}  // namespace

MainWindow::MainWindow()
    : m_commands(new QToolBar(tr("命令"))),
      m_pages(new QToolBar(tr("页面"))),
      m_middle(new QStackedWidget),
      m_projects(new FlatCombo),
      m_account(new QToolButton),
      m_bell(new BellButton),
      m_projectTitle(new QLabel),
      m_projectDetails(new QLabel),
      m_log(new QPlainTextEdit),
      m_serviceDot(new QLabel),
      m_serviceText(new QLabel),
      m_user(new QLabel) {
    setWindowTitle(tr("工作台"));
    resize(QGuiApplication::primaryScreen()->availableSize() * kShareOfScreen);

    for (QToolBar* bar : {m_commands, m_pages}) {
        bar->setMovable(false);
        bar->setContextMenuPolicy(Qt::PreventContextMenu);
        bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        addToolBar(bar);
    }
    auto* projectBar = new QToolBar(tr("工程"));
    projectBar->setMovable(false);
    projectBar->setContextMenuPolicy(Qt::PreventContextMenu);
    projectBar->addWidget(stretch());
    auto* label = new QLabel(tr("工程(&P)"));
    label->setBuddy(m_projects);
    projectBar->addWidget(label);
    m_projects->setMinimumContentsLength(18);
    m_projects->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_projects->setAccessibleName(tr("工程"));
    projectBar->addWidget(m_projects);
    auto* refresh = projectBar->addAction(icons::refresh(), tr("刷新工程列表"), this, &MainWindow::projectsWanted);
    refresh->setShortcut(QKeySequence::Refresh);
    refresh->setToolTip(tr("刷新工程列表（F5）"));
    makeReachable(projectBar->widgetForAction(refresh));
    projectBar->addWidget(m_bell);
    makeReachable(m_bell);
    createUserMenu();
    projectBar->addWidget(m_account);
    makeReachable(m_account);
    addToolBar(projectBar);

    m_middle->addWidget(createStartPage());
    setCentralWidget(m_middle);
    QDockWidget* log = createLogPane();
    addDockWidget(Qt::BottomDockWidgetArea, log);
    resizeDocks({log}, {height() / 3}, Qt::Vertical);
    log->hide();
    QAction* showLog = log->toggleViewAction();
    showLog->setIcon(icons::log());
    showLog->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
    showLog->setToolTip(tr("日志（Ctrl+L）"));
    projectBar->insertAction(projectBar->actions().at(projectBar->actions().indexOf(refresh) + 1), showLog);
    makeReachable(projectBar->widgetForAction(showLog));
    createStatusLine();
    connect(m_projects, qOverload<int>(&QComboBox::activated), this, &MainWindow::projectChosen);
    connect(m_bell, &BellButton::clicked, this, &MainWindow::messagesWanted);
    m_settling.setSingleShot(true);
    m_settling.setInterval(kSettlingMs);
    connect(&m_settling, &QTimer::timeout, this, [this] {
        if (!windowHandle()->isExposed())
            return m_settling.start();
        if (!std::exchange(m_isSettled, true))
            emit settled();
    });
    showProject(-1, {}, {});
}

QWidget* MainWindow::createStartPage() {
    m_projectTitle->setStyleSheet(look::kHeading);
    m_projectTitle->setAlignment(Qt::AlignHCenter);
    m_projectTitle->setTextFormat(Qt::PlainText);
    m_projectDetails->setStyleSheet(look::kFaintText);
    m_projectDetails->setAlignment(Qt::AlignHCenter);
    m_projectDetails->setTextFormat(Qt::PlainText);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setSpacing(10);
    layout->addStretch();
    layout->addWidget(m_projectTitle);
    layout->addWidget(m_projectDetails);
    layout->addStretch();
    return page;
}

QDockWidget* MainWindow::createLogPane() {
    m_log->setReadOnly(true);
    m_log->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_log->setMaximumBlockCount(kLogLines);
    m_log->setFrameShape(QFrame::NoFrame);
    m_log->setAccessibleName(tr("日志"));
    auto* dock = new QDockWidget(tr("日志"));
    dock->setFeatures(QDockWidget::DockWidgetClosable);
    dock->setWidget(m_log);
    return dock;
}

void MainWindow::createUserMenu() {
    auto* menu = new QMenu(m_account);
    menu->addAction(tr("更换用户…"), this, &MainWindow::userChangeWanted);
    menu->addAction(tr("退出登录"), this, &MainWindow::logOutWanted);
    m_account->setMenu(menu);
    m_account->setPopupMode(QToolButton::InstantPopup);
    m_account->setIcon(icons::user());
    m_account->setIconSize({icons::kSide, icons::kSide});
    m_account->setAccessibleName(tr("用户"));
    m_account->setToolTip(tr("更换用户、退出登录"));
}

void MainWindow::createStatusLine() {
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setContentsMargins(8, 0, 8, 0);
    statusBar()->addWidget(m_serviceDot);
    statusBar()->addWidget(m_serviceText, 1);
    statusBar()->addPermanentWidget(m_user);
    m_serviceText->setTextFormat(Qt::PlainText);
    m_user->setTextFormat(Qt::PlainText);
    m_serviceDot->setText("●");
    m_serviceDot->setStyleSheet(look::dot(look::kUnknown));
    m_serviceText->setText(tr("正在询问服务…"));
}

void MainWindow::addCommand(BASECORE::CMD::ICmdObject& command, const std::wstring& name) {
    auto* action = m_commands->addAction(icons::command(), titleOf(name), this,
                                         [&command, logged = QString::fromStdWString(name)] { run(command, logged); });
    makeReachable(m_commands->widgetForAction(action));
    if (const int number = m_commands->actions().size(); number <= kNumberedCommands) {
        action->setShortcut(QKeySequence(QString("Ctrl+%1").arg(number)));
        action->setToolTip(tr("%1（Ctrl+%2）").arg(action->text()).arg(number));
    }
}

void MainWindow::addPage(QWidget* page, const QIcon& icon, const QString& title, const QKeySequence& keys) {
    m_middle->addWidget(page);
    QAction* action = m_pages->addAction(icon, title);
    action->setCheckable(true);
    action->setShortcut(keys);
    action->setToolTip(QString("%1（%2）").arg(title, keys.toString(QKeySequence::NativeText)));
    makeReachable(m_pages->widgetForAction(action));
    connect(action, &QAction::toggled, this,
            [this, page](bool isWanted) { m_middle->setCurrentWidget(isWanted ? page : m_middle->widget(0)); });
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    m_settling.start();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (m_settling.isActive())
        m_settling.start();  // window managers take their time to enlarge a window
}

void MainWindow::makeReachable(QWidget* button) {
    button->setFocusPolicy(Qt::TabFocus);
    button->installEventFilter(this);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    auto* button = qobject_cast<QToolButton*>(watched);
    if (!button || event->type() != QEvent::KeyPress)
        return QMainWindow::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (isEnter)
        button->click();  // by itself a tool button knows the space bar alone
    return isEnter;
}

void MainWindow::removeCommands() {
    qDeleteAll(m_commands->actions());
}

void MainWindow::focusCommands() {
    if (!m_commands->actions().isEmpty())
        m_commands->widgetForAction(m_commands->actions().first())->setFocus();
}

void MainWindow::run(BASECORE::CMD::ICmdObject& command, const QString& name) {
    guarded(name, [&] {
        if (!command.Execute())
            qCWarning(messages).noquote() << tr("命令 %1 现在不能执行").arg(name);
    });
}

void MainWindow::setUser(const QString& realName) {
    const bool isSomebody = !realName.isEmpty();
    m_user->setText(isSomebody ? tr("当前用户：%1").arg(realName) : tr("未登录"));
    m_account->menu()->actions().first()->setText(isSomebody ? tr("更换用户…") : tr("登录…"));
    m_account->menu()->actions().last()->setEnabled(isSomebody);
    m_commands->setEnabled(isSomebody);
    m_pages->setEnabled(isSomebody);
    m_bell->setEnabled(isSomebody);
}

void MainWindow::setProjects(const std::vector<PROJECTPACKAGE::ProjectRecord>& projects) {
    const QSignalBlocker blocker(m_projects);
    m_projects->clear();
    for (const PROJECTPACKAGE::ProjectRecord& project : projects)
        m_projects->addItem(QString::fromStdWString(project.projName));
    m_projects->setEnabled(!projects.empty());
}

void MainWindow::showProject(int index, const QString& name, const QString& deptName) {
    m_projects->setCurrentIndex(index);
    m_projectTitle->setText(name.isEmpty() ? tr("没有打开的工程") : name);
    m_projectDetails->setText(!name.isEmpty()           ? deptName
                              : m_commands->isEnabled() ? tr("请在右上角选择工程，列表为空时请刷新")
                                                        : tr("请先在右上角登录"));
}

void MainWindow::showServiceState(bool alive, const QString& text) {
    m_serviceDot->setStyleSheet(look::dot(alive ? look::kAlive : look::kDead));
    m_serviceText->setText(text);
}

void MainWindow::showUnread(int count) {
    m_bell->setUnread(count);
}

void MainWindow::appendLog(const QString& line) {
    m_log->appendPlainText(line);
}

}  // namespace workbench
