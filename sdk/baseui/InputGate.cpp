#include "sdk/baseui/InputGate.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <QWindow>

namespace BASEUI {
namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::NativeGesture:
        case QEvent::DragEnter:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

InputGate::InputGate() : m_loopLevel(QThread::currentThread()->loopLevel()) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool InputGate::eventFilter(QObject* watched, QEvent* event) {
    if (QThread::currentThread()->loopLevel() > m_loopLevel)
        return false;
    const bool isWindow = watched->isWindowType();
    // Not every system can leave timers out of the events that are handled. A window's own has it painted.
    if (event->type() == QEvent::Timer)
        return !isWindow;
    if (!isInput(event->type()) || !(isWindow || watched->isWidgetType()))
        return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (m_open && (watched == m_open->windowHandle() || (widget && widget->window() == m_open)))
        return false;
    event->ignore();
    return true;
}

}  // namespace BASEUI
