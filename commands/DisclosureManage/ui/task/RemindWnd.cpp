#include "commands/DisclosureManage/ui/task/RemindWnd.h"

#include <QDialog>
#include <QQuickView>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/task/RemindViewModel.h"

void CRemindWnd::edit() {
    if (!FindDisclosureManager())
        return;
    CRemindWnd().frame().run();
}

CRemindWnd::CRemindWnd() {
    auto* model = new CRemindViewModel(frame().view());
    connect(model, &CRemindViewModel::closeWnd, frame().dialog(), &QDialog::close);
    load("Remind.qml", "remindModel", model, {320, 220});
}
