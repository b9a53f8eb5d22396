#include "sdk/baseui/MessageBox.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

#include "sdk/baseui/DialogOwner.h"

namespace BASEUI {
namespace {

MessageBoxHandler& Handler() {
    static MessageBoxHandler handler;
    return handler;
}

QString Text(const char* text) {
    return QApplication::translate("BASEUI", text);
}

/// A box with the question, whose default button is "取消".
MessageResult AskPlainly(const QString& text, const QString& details, QWidget* owner) {
    QMessageBox box(owner);
    box.setWindowTitle(Text("提示"));
    box.setTextFormat(Qt::PlainText);
    box.setIcon(QMessageBox::Warning);
    box.setText(text);
    box.setInformativeText(details);
    const QPushButton* ok = box.addButton(Text("确定"), QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(Text("取消"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == ok ? MessageResult::Ok : MessageResult::Cancel;
}

/// A dialog that takes the answer only once the name has been typed.
MessageResult AskForName(const QString& text, const QString& name, QWidget* owner) {
    QInputDialog dialog(owner);
    dialog.setWindowTitle(Text("提示"));
    dialog.setLabelText(text);
    dialog.setOkButtonText(Text("确定"));
    dialog.setCancelButtonText(Text("取消"));
    dialog.sizeHint();  // makes the buttons
    QPushButton* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    const auto judge = [&](const QString& typed) { ok->setEnabled(typed.trimmed() == name.trimmed()); };
    QObject::connect(&dialog, &QInputDialog::textValueChanged, ok, judge);
    judge({});
    return dialog.exec() == QDialog::Accepted ? MessageResult::Ok : MessageResult::Cancel;
}

}  // namespace

MessageResult ShowMessageBox(const std::wstring& text, QWidget* owner, MessageButtons buttons, MessageIcon icon) {
    if (Handler())
        return Handler()(text, owner, buttons);

    QMessageBox box(DialogOwner(owner));
    box.setWindowTitle(QApplication::translate("BASEUI", "提示"));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdWString(text));
    const bool canCancel = buttons == MessageButtons::OkCancel;
    box.setIcon(icon == MessageIcon::Warning ? QMessageBox::Warning
                : canCancel                  ? QMessageBox::Question
                                             : QMessageBox::Information);
    QPushButton* ok = box.addButton(QApplication::translate("BASEUI", "确定"), QMessageBox::AcceptRole);
    box.setDefaultButton(ok);
    if (canCancel)
        box.addButton(QApplication::translate("BASEUI", "取消"), QMessageBox::RejectRole);
    box.exec();
    return !canCancel || box.clickedButton() == ok ? MessageResult::Ok : MessageResult::Cancel;
}

MessageResult AskBeforeLoss(const std::wstring& text, const std::wstring& details, QWidget* owner,
                            const std::wstring& nameToType) {
    if (Handler())
        return Handler()(text + L"\n" + details, owner, MessageButtons::OkCancel);
    const QString question = QString::fromStdWString(text);
    const QString below = QString::fromStdWString(details);
    return nameToType.empty()
               ? AskPlainly(question, below, DialogOwner(owner))
               : AskForName(question + "\n\n" + below, QString::fromStdWString(nameToType), DialogOwner(owner));
}

void SetMessageBoxHandler(MessageBoxHandler handler) {
    Handler() = std::move(handler);
}

}  // namespace BASEUI
