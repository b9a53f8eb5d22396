#include "commands/DisclosureManage/ui/TaskDialog.h"

#include <QDialog>
#include <QQmlContext>
#include <QQuickView>
#include <QScreen>

#include "commands/DisclosureManage/ui/Notice.h"
#include "sdk/basecore/IBaseCoreData.h"

CTaskDialog::CTaskDialog() : CBaseWnd(BASECORE::FRAME::GetMainBaseCore()->GetMainWindow()) {}

void CTaskDialog::publish(const char* name, const QVariant& value) {
    frame().view()->rootContext()->setContextProperty(QString::fromLatin1(name), value);
}

void CTaskDialog::load(const char* page, const char* name, QObject* object, QSize minimum, const char* folder) {
    // At 200 % a screen may be smaller than what the page would like to have.
    const QWidget* host = BASECORE::FRAME::GetMainBaseCore()->GetMainWindow();
    const QSize room = host->screen()->availableSize().expandedTo(host->size());
    frame().dialog()->setMinimumSize(minimum.boundedTo(room));
    publish(name, QVariant::fromValue(object));
    frame().load(QStringLiteral("qrc:/commands/DisclosureManage/ui/%1/qml/%2")
                     .arg(QString::fromLatin1(folder), QString::fromLatin1(page)));
    connectRootObject();
}

QSize CTaskDialog::share() const {
    return WindowFrame::shareOf(BASECORE::FRAME::GetMainBaseCore()->GetMainWindow());
}

bool CTaskDialog::mayDiscard() {
    return AskBeforeLoss(tr("是否放弃修改？"), tr("修改的内容尚未保存，放弃后不能恢复。")) == BASEUI::MessageResult::Ok;
}
