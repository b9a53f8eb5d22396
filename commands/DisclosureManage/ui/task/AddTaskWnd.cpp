#include "commands/DisclosureManage/ui/task/AddTaskWnd.h"

#include <QDialog>
#include <QQmlContext>
#include <QQuickView>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/task/AddTaskViewModel.h"
#include "sdk/basecore/IBaseCoreData.h"

bool CAddTaskWnd::edit(const DISCLOSUREPACKAGE::TaskRecord& task) {
    if (!FindDisclosureManager())
        return false;
    CAddTaskWnd wnd(BASECORE::FRAME::GetMainBaseCore()->GetMainWindow(), task);
    wnd.frame().run();
    return wnd.m_isSaved;
}

CAddTaskWnd::CAddTaskWnd(QWidget* parent, const DISCLOSUREPACKAGE::TaskRecord& task) : CBaseWnd(parent) {
    frame().dialog()->setMinimumSize(WindowFrame::shareOf(parent));
    auto* model = new CAddTaskViewModel(task, frame().view());
    connect(model, &CAddTaskViewModel::closeWnd, this, [this] {
        m_isSaved = true;
        frame().dialog()->close();
    });
    frame().view()->rootContext()->setContextProperty(QStringLiteral("addTaskModel"), model);
    frame().load(QUrl(QStringLiteral("qrc:/commands/DisclosureManage/ui/task/qml/DisClosureTask.qml")));
    connectRootObject();
}
