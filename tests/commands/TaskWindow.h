#pragma once

#include <gtest/gtest.h>

#include <QTimer>

#include "commands/DisclosureManage/DisclosureMgrProvider.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "commands/DisclosureManage/ui/task/TaskManagerViewModel.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/ScreenHost.h"

using BASETOOLS::CAuthCodeTool;
using support::ModalWindow;

/// Lets a refresh of the list that is due run.
inline void awaitRefresh(const TaskManagerViewModel& list) {
    auto* timer = list.findChild<QTimer*>();
    ASSERT_TRUE(QTest::qWaitFor([timer] { return !timer->isActive(); }));
}

/// "status kind-of-date start/end keyword pPAGExSIZE order", days as MM-dd.
inline std::string describe(const DISCLOSUREPACKAGE::TaskQuery& query) {
    const auto day = [](int64_t mills) {
        return mills < 0 ? "-" : QDateTime::fromMSecsSinceEpoch(mills).toString("MM-dd");
    };
    return QString("%1 %2 %3/%4 %5 p%6x%7 %8")
        .arg(query.status)
        .arg(query.dateType)
        .arg(day(query.startDateMills), day(query.endDateMills), QString::fromStdWString(query.keyword))
        .arg(query.currentPage)
        .arg(query.pageSize)
        .arg(QString::fromStdWString(query.orderKey + L" " + query.orderType))
        .trimmed()
        .toStdString();
}

/// The main window over a service with catalogs and tasks, with the hands of a user.
class TaskWindow : public testing::Test {
protected:
    TaskWindow(int tasks, QSize size, std::initializer_list<const wchar_t*> rights) {
        host.window.resize(size);
        host.grant(rights);
        service.fill();
        service.fillTasks(tasks);
    }

    void run(const QString& taskId, const ModalWindow::Steps& steps) {
        ModalWindow::run([&] { provider.ShowMainWindow(taskId); },
                         [&](ModalWindow& window) {
                             look(window);
                             steps(window);
                         });
    }
    void run(const ModalWindow::Steps& steps) { run({}, steps); }
    void look(const ModalWindow& window) {
        list = qobject_cast<TaskManagerViewModel*>(window.context("theTaskModel"));
        tree = qobject_cast<CatalogTreeModel*>(window.context("theModel"));
        ASSERT_TRUE(list && tree);
        settle();
    }
    /// Lets a refresh that is due run and its rows appear.
    void settle() {
        ModalWindow::settle();
        awaitRefresh(*list);
        ModalWindow::settle();
    }
    TaskModel* task(int row) const { return list->taskModel()->task_list()->at(row); }
    /// The catalog that is selected.
    std::string catalog() const {
        const CatalogTreeNode* node = tree->GetCurrentNode();
        return node ? node->nodeName().toStdString() : "nothing";
    }
    static QQuickItem* table(const ModalWindow& window) { return window.find("checkStateRole", "selected"); }
    static int currentRow(const ModalWindow& window) { return table(window)->property("currentRow").toInt(); }

    support::ScreenHost host;
    support::FakeDisclosureMgr& service = host.manager;
    DisclosureMgrProvider provider;
    TaskManagerViewModel* list = nullptr;
    CatalogTreeModel* tree = nullptr;
};
