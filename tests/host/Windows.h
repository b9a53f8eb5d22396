#pragma once

#include <functional>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <QtTest/QTest>

#include "host/shell/Workbench.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/baseui/MessageBox.h"
#include "sdk/packages/IKpxCurProjectMgr.h"
#include "tests/host/TestPlatform.h"

/// What the tests of the workbench's windows share.
namespace support {

/// The first child of that class whose text has that in it.
template <class Widget>
Widget* showing(const QWidget& parent, const QString& text) {
    for (Widget* widget : parent.findChildren<Widget*>())
        if (widget->text().contains(text))
            return widget;
    return nullptr;
}

/// Waits, within reason.
inline bool comesTrue(const std::function<bool()>& what) {
    return QTest::qWaitFor(what, 30000);
}

inline workbench::Options optionsFor(const TestPlatform& platform, const QString& plugIns, const QString& data) {
    workbench::Options options;
    options.service = platform.server.address();
    options.userName = options.password = "demo";
    options.plugInFolders = QStringList{plugIns};
    options.dataFolder = data;
    return options;
}

/// Keeps the current project open as long as it holds.
struct Veto : PROJECTPACKAGE::IKpxProjLoadObserver {
    bool holds = true;
    void OnProjectLoaded(PROJECTPACKAGE::IProject*) override {}
    void OnProjectSaved(PROJECTPACKAGE::IProject*) override {}
    void OnProjectClosed(PROJECTPACKAGE::IProject*) override {}
    bool CanLoadProject(PROJECTPACKAGE::IProject*) override { return true; }
    bool CanCloseProject(PROJECTPACKAGE::IProject*) override { return !holds; }
};

}  // namespace support
