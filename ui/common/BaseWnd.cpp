#include "ui/common/BaseWnd.h"

#include <QDialog>

CBaseWnd::CBaseWnd(QWidget* parent) : m_frame(parent) {}

CBaseWnd::~CBaseWnd() = default;

void CBaseWnd::connectRootObject() {
    m_frame.connectClose();
    m_frame.connectTitleBar(this);
    m_frame.connectRoot("connectBimClick()", this, "onConnectBimClick()", WindowFrame::Presence::Optional);
}

void CBaseWnd::slotToggleMaximized() {
    m_frame.toggleMaximized();
}

void CBaseWnd::onTitlebarPressed() {
    m_frame.press();
}

void CBaseWnd::onTitlebarPositionChanged() {
    m_frame.drag();
}

void CBaseWnd::onTitleBarDoubleClicked() {
    m_frame.toggleMaximized();
}
