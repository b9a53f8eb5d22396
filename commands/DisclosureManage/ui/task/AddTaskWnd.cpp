#include "commands/DisclosureManage/ui/task/AddTaskWnd.h"

#include <QDialog>
#include <QQuickItem>
#include <QQuickView>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/task/AddTaskViewModel.h"

bool CAddTaskWnd::edit(const DISCLOSUREPACKAGE::TaskRecord& task) {
    if (!FindDisclosureManager())
        return false;
    CAddTaskWnd wnd(task);
    wnd.frame().run();
    return wnd.m_isSaved;
}

CAddTaskWnd::CAddTaskWnd(const DISCLOSUREPACKAGE::TaskRecord& task)
    : m_model(new CAddTaskViewModel(task, frame().view())) {
    connect(m_model, &CAddTaskViewModel::closeWnd, this, [this] {
        m_isSaved = true;
        frame().dialog()->close();
    });
    frame().setMayClose([this] { return mayClose(); });
    load("DisClosureTask.qml", "addTaskModel", m_model, share());
}

bool CAddTaskWnd::mayClose() const {
    const QQuickItem* page = frame().view()->rootObject();
    const bool isTyping = page && page->property("typing").toBool();
    return m_isSaved || (!isTyping && !m_model->isChanged()) || mayDiscard();
}
