#pragma once

#include <QApplication>
#include <QString>

#include "sdk/baseui/MessageBox.h"

/// The host's message box over the window in use.
inline BASEUI::MessageResult ShowNotice(const QString& text,
                                        BASEUI::MessageButtons buttons = BASEUI::MessageButtons::Ok) {
    return BASEUI::ShowMessageBox(text.toStdWString(), QApplication::activeWindow(), buttons);
}
