#pragma once

#include <QCoreApplication>
#include <QPointer>

#include "sdk/baseui/ProgressDialog.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QWidget;

namespace workbench {

class BusyDialog;

/// The progress dialog of plug-ins: painted before the call returns, because the UI thread is busy after it.
class ProgressDialog final : public BIMScrollBar::KnSbInterface {
    Q_DECLARE_TR_FUNCTIONS(ProgressDialog)

public:
    ProgressDialog();
    ~ProgressDialog();
    ProgressDialog(const ProgressDialog&) = delete;
    ProgressDialog& operator=(const ProgressDialog&) = delete;

    void ShowProgressDialog(const std::wstring& title, const std::wstring& text) override;
    void CloseProgressDialog() override;

    /// A transfer in the dialog: while the object lives, this shows how much is done and has a button to cancel.
    class Transfer {
    public:
        /// Where no dialog is shown, one with `text` is, over `owner`, until the transfer ends.
        Transfer(ProgressDialog& dialog, const QString& text, QWidget* owner);
        ~Transfer();
        Transfer(const Transfer&) = delete;
        Transfer& operator=(const Transfer&) = delete;

        /// Shows the bytes, repaints and lets the user use the dialog and nothing else; no timer fires. False once the
        /// user has cancelled.
        bool advance(qint64 done, qint64 total);

    private:
        ProgressDialog& m_dialog;
        bool m_isOwn;
    };

private:
    void show(const QString& title, const QString& text, QWidget* owner);
    void showDetermined(bool determined);

    QPointer<BusyDialog> m_dialog;  // null when it is closed, also by the end of its parent
    QLabel* m_text = nullptr;
    QProgressBar* m_bar = nullptr;
    QWidget* m_details = nullptr;
    QLabel* m_amount = nullptr;
    QPushButton* m_cancel = nullptr;
};

}  // namespace workbench
