#include "commands/DisclosureManage/ui/task/TaskDialog.h"

#include <QDialog>
#include <QQmlContext>
#include <QQuickView>

#include "sdk/basecore/IBaseCoreData.h"

CTaskDialog::CTaskDialog() : CBaseWnd(BASECORE::FRAME::GetMainBaseCore()->GetMainWindow()) {}

void CTaskDialog::publish(const char* name, const QVariant& value) {
    frame().view()->rootContext()->setContextProperty(QString::fromLatin1(name), value);
}

void CTaskDialog::load(const char* page, const char* name, QObject* object, QSize minimum) {
    frame().dialog()->setMinimumSize(minimum);
    publish(name, QVariant::fromValue(object));
    frame().load(QStringLiteral("qrc:/commands/DisclosureManage/ui/task/qml/") + QString::fromLatin1(page));
    connectRootObject();
}

QSize CTaskDialog::share() const {
    return WindowFrame::shareOf(BASECORE::FRAME::GetMainBaseCore()->GetMainWindow());
}
