#include "host/shell/BellKey.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMessageBox>

#include "host/shell/LoginDialog.h"
#include "host/shell/MessageDialog.h"
#include "sdk/baseui/ProgressDialog.h"

namespace workbench {
namespace {

bool isTaken(const QWidget* modal) {
    const auto* progress = BIMScrollBar::KnSbInterface::Instance();
    return (progress && modal && modal == progress->GetWindow()) || qobject_cast<const LoginDialog*>(modal) ||
           qobject_cast<const MessageDialog*>(modal) || qobject_cast<const QMessageBox*>(modal) ||
           qobject_cast<const QFileDialog*>(modal);
}

}  // namespace

BellKey::BellKey() {
    qApp->installEventFilter(this);
}

bool BellKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !(watched->isWindowType() || watched->isWidgetType()))
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_M || key->modifiers() != Qt::ControlModifier ||
        isTaken(QApplication::activeModalWidget()))
        return false;
    emit pressed();
    return true;
}

}  // namespace workbench
