#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
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

    QWidget* GetWindow() const override;
    bool ShowWaiting(bool canCancel, int64_t done, int64_t total) override;
    void EndWaiting() override;

    /// Where no dialog is shown, one with `text` is, over `owner`, while the object lives.
    class Scope {
    public:
        Scope(ProgressDialog& dialog, const QString& text, QWidget* owner);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        ProgressDialog& m_dialog;
        bool m_isOwn;
    };

private:
    void show(const QString& title, const QString& text, QWidget* owner);

    QPointer<BusyDialog> m_dialog;  // null when it is closed, also by the end of its parent
    QLabel* m_text = nullptr;
    QProgressBar* m_bar = nullptr;
    QWidget* m_details = nullptr;
    QLabel* m_amount = nullptr;
    QPushButton* m_cancel = nullptr;
    QElapsedTimer m_waiting;   // since the first look at the present wait
    bool m_mayCancel = false;  // the present wait
};

}  // namespace workbench
