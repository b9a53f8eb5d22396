#include "host/managers/ProgressDialog.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>
#include <QWindow>

#include "sdk/baseui/DialogOwner.h"

namespace workbench {

/// A dialog that only its owner closes. Closing it by the user is the wish to cancel.
class BusyDialog : public QDialog {
public:
    using QDialog::QDialog;
    void reject() override { isCancelled = canCancel; }

    bool canCancel = false;
    bool isCancelled = false;
};

namespace {

constexpr int kLongestWaitMs = 300;
constexpr QSize kTextSize(320, 40);
constexpr int kSteps = 1000;
constexpr int kUpperPart = 6;
constexpr qint64 kSecond = 1000;
constexpr double kMiB = 1024.0 * 1024.0;
constexpr auto kNoTimers = QEventLoop::X11ExcludeTimers;

/// Handles what the window system sends, and neither input nor timers: those would re-enter the caller.
void paintNow(QWidget& widget) {
    constexpr auto kWhat = QEventLoop::ExcludeUserInputEvents | kNoTimers;
    const QDeadlineTimer deadline(kLongestWaitMs);
    QCoreApplication::processEvents(kWhat);
    while (!widget.windowHandle()->isExposed() && !deadline.hasExpired()) {
        QThread::msleep(5);
        QCoreApplication::processEvents(kWhat);
    }
    widget.repaint();
    QCoreApplication::processEvents(kWhat);
}

/// In the upper part of its owner, whose middle says what is being read.
void place(QWidget& dialog) {
    const QWidget* owner = dialog.parentWidget();
    if (!owner)
        return;
    const QRect room = owner->window()->geometry();
    const QSize size = dialog.sizeHint();
    dialog.move(room.center().x() - size.width() / 2, room.top() + room.height() / kUpperPart);
}

}  // namespace

ProgressDialog::ProgressDialog() {
    Install(this);
}

ProgressDialog::~ProgressDialog() {
    Install(nullptr);
    delete m_dialog;
}

void ProgressDialog::ShowProgressDialog(const std::wstring& title, const std::wstring& text) {
    show(QString::fromStdWString(title), QString::fromStdWString(text), nullptr);
}

void ProgressDialog::CloseProgressDialog() {
    delete m_dialog;
}

void ProgressDialog::show(const QString& title, const QString& text, QWidget* owner) {
    if (!m_dialog) {
        m_dialog =
            new BusyDialog(BASEUI::DialogOwner(owner), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
        m_dialog->setModal(true);
        m_text = new QLabel;
        m_text->setWordWrap(true);
        m_text->setMinimumSize(kTextSize);
        m_bar = new QProgressBar;
        m_bar->setTextVisible(false);
        m_amount = new QLabel;
        m_cancel = new QPushButton(tr("取消"));
        m_cancel->setAutoDefault(false);  // a Return that was meant for what came before does not cancel
        QObject::connect(m_cancel, &QPushButton::clicked, m_dialog.data(), &QDialog::reject);
        m_details = new QWidget;
        auto* details = new QHBoxLayout(m_details);
        details->setContentsMargins(0, 0, 0, 0);
        details->addWidget(m_amount, 1);
        details->addWidget(m_cancel);
        auto* layout = new QVBoxLayout(m_dialog);
        layout->setSizeConstraint(QLayout::SetFixedSize);  // so that it grows with the details
        layout->addWidget(m_text);
        layout->addWidget(m_bar);
        layout->addWidget(m_details);
        m_dialog->setFocusPolicy(Qt::StrongFocus);
        m_dialog->setFocus();
        if (m_waiting.isValid())
            ShowWaiting(m_mayCancel, 0, 0);
        else
            EndWaiting();
    }
    m_dialog->setWindowTitle(title);
    m_text->setText(text);
    if (!m_dialog->isVisible())
        place(*m_dialog);
    m_dialog->show();
    paintNow(*m_dialog);
}

QWidget* ProgressDialog::GetWindow() const {
    return m_dialog;
}

bool ProgressDialog::ShowWaiting(bool canCancel, int64_t done, int64_t total) {
    m_mayCancel = canCancel;
    if (!m_waiting.isValid())
        m_waiting.start();
    if (!m_dialog)
        return true;
    m_dialog->canCancel = canCancel;
    m_cancel->setVisible(canCancel);
    m_details->show();
    m_bar->setRange(0, total > 0 ? kSteps : 0);
    m_bar->setVisible(total > 0);  // without an end it would stand still, as no timer moves it
    if (total > 0) {
        const auto inMB = [](int64_t bytes) { return QString::number(static_cast<double>(bytes) / kMiB, 'f', 1); };
        m_bar->setValue(static_cast<int>(done * kSteps / total));
        m_amount->setText(tr("%1 MB / %2 MB").arg(inMB(done), inMB(total)));
    } else {
        m_amount->setText(tr("已等待 %1 秒").arg(m_waiting.elapsed() / kSecond));
    }
    return !m_dialog->isCancelled;
}

void ProgressDialog::EndWaiting() {
    m_waiting.invalidate();
    if (!m_dialog)
        return;
    m_dialog->canCancel = false;
    m_dialog->isCancelled = false;
    m_bar->setRange(0, 0);
    m_bar->show();
    m_details->hide();
}

ProgressDialog::Scope::Scope(ProgressDialog& dialog, const QString& text, QWidget* owner)
    : m_dialog(dialog), m_isOwn(!dialog.m_dialog) {
    if (m_isOwn)
        m_dialog.show(tr("处理状态"), text, owner);
}

ProgressDialog::Scope::~Scope() {
    if (m_isOwn)
        m_dialog.CloseProgressDialog();
}

}  // namespace workbench
