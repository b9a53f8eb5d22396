#pragma once

#include <QApplication>
#include <QString>

#include "sdk/baseui/MessageBox.h"

/// The host's message box over the window in use.
inline BASEUI::MessageResult ShowNotice(const QString& text,
                                        BASEUI::MessageButtons buttons = BASEUI::MessageButtons::Ok) {
    return BASEUI::ShowMessageBox(text.toStdWString(), QApplication::activeWindow(), buttons);
}

/// The same for something that the user has to mend.
inline void WarnUser(const QString& text) {
    BASEUI::ShowMessageBox(text.toStdWString(), QApplication::activeWindow(), BASEUI::MessageButtons::Ok,
                           BASEUI::MessageIcon::Warning);
}

/// Asks before something that cannot be undone; see `BASEUI::AskBeforeLoss`.
inline BASEUI::MessageResult AskBeforeLoss(const QString& text, const QString& details,
                                           const QString& nameToType = {}) {
    return BASEUI::AskBeforeLoss(text.toStdWString(), details.toStdWString(), QApplication::activeWindow(),
                                 nameToType.toStdWString());
}
