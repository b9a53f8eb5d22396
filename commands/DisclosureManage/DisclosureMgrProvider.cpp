#include "commands/DisclosureManage/DisclosureMgrProvider.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickView>
#include <QScopeGuard>
#include <QTimer>

#include "commands/DisclosureManage/ui/CallReport.h"
#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/Rights.h"
#include "commands/DisclosureManage/ui/UserSettings.h"
#include "commands/DisclosureManage/ui/task/CatalogEditor.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "commands/DisclosureManage/ui/task/MainWindowModel.h"
#include "commands/DisclosureManage/ui/task/TaskManagerViewModel.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"
#include "ui/common/WideText.h"
#include "ui/common/WindowFrame.h"

using BASETOOLS::CAuthCodeTool;
using DISCLOSUREPACKAGE::IDisclosureManageMgr;
using DISCLOSUREPACKAGE::TaskRecord;

namespace {

/// What the page asks to be done to the catalogs; CatalogOptions.js names the same numbers.
enum CatalogOption { Create = 0, ClearReadOnly = 1, Delete = 2, MoveUp = 3, MoveDown = 4, Rename = 5 };

}  // namespace

DisclosureMgrProvider::DisclosureMgrProvider() = default;
DisclosureMgrProvider::~DisclosureMgrProvider() = default;

void DisclosureMgrProvider::ShowMainWindow(const QString& taskId) {
    if (m_frame) {
        m_frame->raise();
        if (QWidget* above = QApplication::activeModalWidget(); above && above != m_frame->dialog())
            above->raise();  // what the window waits for
        if (!taskId.isEmpty() && !isOccupied())
            showTask(taskId);
        return;
    }
    auto* manager = FindDisclosureManager();
    if (!manager)
        return;
    build(manager->GetParentWidget(), BASECORE::FRAME::GetMainBaseCore()->GetMainWindow());

    // Once the window stands, so that it shows that it is waiting, and messages have it below them.
    QTimer::singleShot(0, m_frame->dialog(), [this, taskId] {
        readCatalogs();
        if (!taskId.isEmpty())
            showTask(taskId);
    });

    const QPointer<DisclosureMgrProvider> self(this);
    m_frame->run();
    if (self)  // the host may end while the window is open
        forgetWindow();
}

void DisclosureMgrProvider::build(QWidget* parent, QWidget* mainWindow) {
    m_frame = std::make_unique<WindowFrame>(parent ? parent : mainWindow);
    QQuickView* view = m_frame->view();
    m_frame->dialog()->setMinimumSize(WindowFrame::shareOf(mainWindow ? mainWindow : parent));

    m_catalogs = new CatalogTreeModel(view);
    view->rootContext()->setContextProperty(QStringLiteral("theModel"), m_catalogs);
    m_tasks = new TaskManagerViewModel(view);
    m_window = new MainWindowModel(view);
    m_editor = std::make_unique<CCatalogEditor>(*m_catalogs, m_frame->dialog());
    connectTaskList();
    connectReading();
    pushRights();
    m_catalogs->reading()->begin(true);

    view->rootContext()->setContextProperty(QStringLiteral("theWindow"), m_window);
    view->rootContext()->setContextProperty(QStringLiteral("theTaskModel"), m_tasks);
    view->rootContext()->setContextProperty(QStringLiteral("theUserSettings"), new UserSettings(view));
    view->rootContext()->setContextProperty(QStringLiteral("newFileName"), QString());
    m_frame->load(QUrl(QStringLiteral("qrc:/ui/main.qml")));
    connectRootObject();
}

void DisclosureMgrProvider::connectTaskList() {
    connect(m_catalogs, &CatalogTreeModel::editAuthChanged, m_tasks, &TaskManagerViewModel::setHasEditAuth);
    connect(m_catalogs, &CatalogTreeModel::DelBtnEnableChanged, m_tasks, &TaskManagerViewModel::setDelBtnEnable);
    connect(m_catalogs, &CatalogTreeModel::currentCatalogChanged, m_tasks, &TaskManagerViewModel::setCatalogId);
    connect(m_tasks, &TaskManagerViewModel::taskCountChange, m_catalogs, &CatalogTreeModel::updateCatalogTaskCount);
}

void DisclosureMgrProvider::connectReading() {
    m_tasks->setCatalogPath([catalogs = m_catalogs](const QString& id) { return catalogs->pathOf(id); });
    connect(m_tasks, &TaskManagerViewModel::done, m_window, &MainWindowModel::say);
    connect(m_window, &MainWindowModel::refreshWanted, this, [this] { readAgain(Extent::Everything); });
    connect(m_window->service(), &ServiceState::back, this, [this] { readAgain(Extent::WhatFailed); });
    connect(m_tasks, &TaskManagerViewModel::released, this, [this] {
        if (m_isReadingDue)
            readAgain(Extent::WhatFailed);
    });
}

void DisclosureMgrProvider::readCatalogs() {
    m_isRead = (m_editor && m_editor->load(!m_isRead)) || m_isRead;
}

void DisclosureMgrProvider::readAgain(Extent extent) {
    if (!m_editor)
        return;
    m_isReadingDue = m_editor->isAsking() || m_tasks->isHeld();
    if (m_isReadingDue)
        return;
    const bool isAll = extent == Extent::Everything;
    pushRights();  // without the service nobody has any
    if (isAll || m_catalogs->reading()->isFailed())
        readCatalogs();
    if (isAll || m_tasks->reading()->isFailed())
        m_tasks->RefreshCurrentTaskInfo(isAll);
}

void DisclosureMgrProvider::pushRights() {
    m_catalogs->setEditAuth(HoldsRight(CAuthCodeTool::kEditTasks));
    m_catalogs->setNodeOperEnable(HoldsRight(CAuthCodeTool::kEditCatalogs));
    m_catalogs->setNewBuildEnable(HoldsRight(CAuthCodeTool::kEditCatalogs) && m_catalogs->currentIndex().isValid());
    m_catalogs->setDelBtnEnable(HoldsRight(CAuthCodeTool::kDeleteTasks));
}

void DisclosureMgrProvider::connectRootObject() {
    m_frame->connectClose();
    m_frame->connectTitleBar(this);
    m_frame->connectRoot("close()", this, "slotWindowClose()");
    m_frame->connectRoot("signalCatalogOption(QVariant,QVariant)", this, "slotCatalogOption(QVariant,QVariant)");
    m_frame->connectRoot("signalUpdateNextFolderName()", this, "slotUpdateNextFolderName()");
    connect(m_frame->view(), &QWindow::widthChanged, this, &DisclosureMgrProvider::slotWindowWidthChanged);
    connect(m_frame->view(), &QWindow::heightChanged, this, &DisclosureMgrProvider::slotWindowHeightChanged);
}

void DisclosureMgrProvider::forgetWindow() {
    m_editor.reset();
    m_frame.reset();
    m_catalogs = nullptr;
    m_tasks = nullptr;
    m_window = nullptr;
    m_isRead = false;
    m_isReadingDue = false;
}

bool DisclosureMgrProvider::isOccupied() const {
    const QQuickItem* root = m_frame->view() ? m_frame->view()->rootObject() : nullptr;
    return QApplication::activeModalWidget() != m_frame->dialog() || !root || root->property("asking").toBool();
}

void DisclosureMgrProvider::showTask(const QString& taskId) {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    TaskRecord task;
    if (!manager || !Commanded(tr("打开任务"), [&] { return manager->QueryTaskById(taskId.toStdWString(), task); }))
        return;
    const QModelIndex catalog = catalogOf(task, *manager);
    if (!catalog.isValid())
        return;
    m_catalogs->expandTo(catalog);
    m_catalogs->setCurrentIndex(catalog);
    m_tasks->revealTask(task);
}

QModelIndex DisclosureMgrProvider::catalogOf(const TaskRecord& task, IDisclosureManageMgr& manager) {
    const QString id = FromWide(task.disclosureCatalogId);
    const QModelIndex known = m_catalogs->indexOf(m_catalogs->findCatalog(id));
    if (known.isValid())
        return known;
    if (task.deptId != manager.GetCurDeptId()) {
        ShowNotice(tr("任务“%1”属于部门“%2”，无法在当前项目中打开").arg(FromWide(task.name), FromWide(task.deptName)));
        return {};
    }
    if (!m_editor || !m_editor->load(false))  // it may have been created since the tree was read
        return {};
    const QModelIndex found = m_catalogs->indexOf(m_catalogs->findCatalog(id));
    if (!found.isValid())
        ShowNotice(tr("任务不存在或已被删除"));
    return found;
}

void DisclosureMgrProvider::slotCatalogOption(const QVariant& varType, const QVariant& data) {
    bool isNumber = false;
    const int option = varType.toInt(&isNumber);
    if (!m_editor || !isNumber)
        return;
    const auto after = qScopeGuard([this] {
        if (m_isReadingDue)
            readAgain(Extent::WhatFailed);
    });
    switch (option) {
        case Create:
            return m_editor->create(data.toString());
        case ClearReadOnly:
            if (CatalogTreeNode* node = m_catalogs->GetCurrentNode())
                node->setNodeReadOnly(false);
            return;
        case Delete:
            return m_editor->remove();
        case MoveUp:
            return m_editor->moveUp();
        case MoveDown:
            return m_editor->moveDown();
        case Rename:
            return m_editor->rename(data.toString());
        default:
            return;
    }
}

void DisclosureMgrProvider::slotWindowClose() {
    m_editor.reset();  // what a closing page still sends changes nothing
}

void DisclosureMgrProvider::slotWindowWidthChanged(int width) {
    if (QQuickItem* root = m_frame ? m_frame->view()->rootObject() : nullptr)
        root->setWidth(width);
}

void DisclosureMgrProvider::slotWindowHeightChanged(int height) {
    if (QQuickItem* root = m_frame ? m_frame->view()->rootObject() : nullptr)
        root->setHeight(height);
}

void DisclosureMgrProvider::slotToggleMaximized() {
    if (m_frame)
        m_frame->toggleMaximized();
}

void DisclosureMgrProvider::slotUpdateNextFolderName() {
    if (m_editor)
        m_frame->view()->rootContext()->setContextProperty(QStringLiteral("newFileName"), m_editor->nextFolderName());
}

void DisclosureMgrProvider::onTitlebarPressed() {
    if (m_frame)
        m_frame->press();
}

void DisclosureMgrProvider::onTitlebarPositionChanged() {
    if (m_frame)
        m_frame->drag();
}

void DisclosureMgrProvider::onTitleBarDoubleClicked() {
    slotToggleMaximized();
}
