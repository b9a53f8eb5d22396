#pragma once

#include <functional>
#include <string>

#include "sdk/Export.h"

class QWidget;

namespace BASEUI {

enum class MessageButtons { Ok, OkCancel };
enum class MessageResult { Ok = 1, Cancel = 2 };
enum class MessageIcon { Usual, Warning };  // what is usual depends on the buttons

/// Shows `text` modally and returns the button that was pressed; closing the box is Cancel where it can be chosen.
/// `owner` may be null.
HOSTSDK_API MessageResult ShowMessageBox(const std::wstring& text, QWidget* owner = nullptr,
                                         MessageButtons buttons = MessageButtons::Ok,
                                         MessageIcon icon = MessageIcon::Usual);

/// Asks before something that cannot be undone: `details` stands below `text`, and the default button gives up. Where
/// `nameToType` is not empty, the other button works once that has been typed. A handler is given both texts as one and
/// its answer counts as typed.
HOSTSDK_API MessageResult AskBeforeLoss(const std::wstring& text, const std::wstring& details, QWidget* owner = nullptr,
                                        const std::wstring& nameToType = {});

/// Answers message boxes in place of the built-in one.
using MessageBoxHandler = std::function<MessageResult(const std::wstring&, QWidget*, MessageButtons)>;
/// Process-wide; an empty handler restores the built-in box.
HOSTSDK_API void SetMessageBoxHandler(MessageBoxHandler handler);

}  // namespace BASEUI
