#include "sdk/baseui/MessageBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "sdk/baseui/DialogOwner.h"

namespace BASEUI {
namespace {

MessageBoxHandler& Handler() {
    static MessageBoxHandler handler;
    return handler;
}

}  // namespace

MessageResult ShowMessageBox(const std::wstring& text, QWidget* owner, MessageButtons buttons) {
    if (Handler())
        return Handler()(text, owner, buttons);

    QMessageBox box(DialogOwner(owner));
    box.setWindowTitle(QApplication::translate("BASEUI", "提示"));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdWString(text));
    const bool canCancel = buttons == MessageButtons::OkCancel;
    box.setIcon(canCancel ? QMessageBox::Question : QMessageBox::Information);
    QPushButton* ok = box.addButton(QApplication::translate("BASEUI", "确定"), QMessageBox::AcceptRole);
    box.setDefaultButton(ok);
    if (canCancel)
        box.addButton(QApplication::translate("BASEUI", "取消"), QMessageBox::RejectRole);
    box.exec();
    return !canCancel || box.clickedButton() == ok ? MessageResult::Ok : MessageResult::Cancel;
}

void SetMessageBoxHandler(MessageBoxHandler handler) {
    Handler() = std::move(handler);
}

}  // namespace BASEUI
