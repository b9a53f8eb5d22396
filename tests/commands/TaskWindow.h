#pragma once

#include <functional>
#include <gtest/gtest.h>

#include <QQuickItem>
#include <QTest>
#include <QTimer>

#include "commands/DisclosureManage/DisclosureMgrProvider.h"
#include "commands/DisclosureManage/ui/task/TaskManagerViewModel.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "tests/commands/FakeTasks.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/QuickPilot.h"
#include "tests/support/ScreenHost.h"

/// The main window over a service with catalogs and tasks, with the hands of a user.
class TaskWindow : public testing::Test {
protected:
    using ModalWindow = support::ModalWindow;

    TaskWindow(int tasks, QSize size, std::initializer_list<const wchar_t*> rights) {
        host.window.resize(size);
        host.core.managers[BASECORE::NAMES::kDisclosure] = &service;
        host.core.managers[BASECORE::NAMES::kDepartments] = &people;
        for (const wchar_t* right : rights)
            host.rights.granted.push_back(BASETOOLS::CAuthCodeTool::GetAuthCode(right));
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
        ASSERT_TRUE(list);
        settle();
    }
    /// Lets a refresh that is due run and its rows appear.
    void settle() {
        ModalWindow::settle();
        auto* timer = list->findChild<QTimer*>();
        ASSERT_TRUE(QTest::qWaitFor([timer] { return !timer->isActive(); }));
        ModalWindow::settle();
    }
    TaskModel* task(int row) const { return list->taskModel()->task_list()->at(row); }
    static QQuickItem* table(const ModalWindow& window) { return window.find("checkStateRole", "selected"); }
    static int currentRow(const ModalWindow& window) { return table(window)->property("currentRow").toInt(); }

    support::ScreenHost host;
    FakeTasks service;
    FakePeople people;
    DisclosureMgrProvider provider;
    TaskManagerViewModel* list = nullptr;
};
