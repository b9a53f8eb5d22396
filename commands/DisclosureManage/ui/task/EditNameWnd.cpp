#include "commands/DisclosureManage/ui/task/EditNameWnd.h"

#include <QDialog>
#include <QQmlContext>
#include <QQuickView>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/task/TaskRules.h"
#include "sdk/basecore/IBaseCoreData.h"

void CEditNameWnd::edit(const QString& name, const Store& store) {
    if (!FindDisclosureManager())
        return;
    CEditNameWnd wnd(BASECORE::FRAME::GetMainBaseCore()->GetMainWindow(), name, store);
    wnd.frame().run();
}

CEditNameWnd::CEditNameWnd(QWidget* parent, const QString& name, const Store& store)
    : CBaseWnd(parent), m_before(name), m_name(name), m_store(store) {
    frame().dialog()->setMinimumSize(300, 170);
    frame().view()->rootContext()->setContextProperty(QStringLiteral("theWnd"), this);
    frame().load(QUrl(QStringLiteral("qrc:/commands/DisclosureManage/ui/task/qml/EditTaskName.qml")));
    connectRootObject();
}

void CEditNameWnd::setTaskName(const QString& name) {
    if (name == m_name)
        return;
    m_name = oneLine(name);
    emit taskNameChanged();
}

void CEditNameWnd::onClickOk() {
    if (m_isDone)
        return;  // a second click came before the dialog was closed
    setTaskName(tidyName(m_name));
    if (const QString broken = brokenNameRule(m_name); !broken.isEmpty()) {
        ShowNotice(broken);
        return;
    }
    m_isDone = m_name == m_before || m_store(m_name);
    if (m_isDone)
        frame().dialog()->close();
}
