#include "commands/DisclosureManage/ui/task/RemindWnd.h"

#include <QDialog>
#include <QQmlContext>
#include <QQuickView>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/task/RemindViewModel.h"
#include "sdk/basecore/IBaseCoreData.h"

void CRemindWnd::edit() {
    if (!FindDisclosureManager())
        return;
    CRemindWnd wnd(BASECORE::FRAME::GetMainBaseCore()->GetMainWindow());
    wnd.frame().run();
}

CRemindWnd::CRemindWnd(QWidget* parent) : CBaseWnd(parent) {
    frame().dialog()->setMinimumSize(320, 220);
    auto* model = new CRemindViewModel(frame().view());
    connect(model, &CRemindViewModel::closeWnd, frame().dialog(), &QDialog::close);
    frame().view()->rootContext()->setContextProperty(QStringLiteral("remindModel"), model);
    frame().load(QUrl(QStringLiteral("qrc:/commands/DisclosureManage/ui/task/qml/Remind.qml")));
    connectRootObject();
}
