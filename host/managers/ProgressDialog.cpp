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

/// While it lives, input reaches one window only.
class InputGate : public QObject {
public:
    explicit InputGate(const QWidget* open) : m_open(open) { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!isInput(event->type()) || !(watched->isWindowType() || watched->isWidgetType()))
            return false;
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (m_open && (watched == m_open->windowHandle() || (widget && widget->window() == m_open)))
            return false;
        event->ignore();
        return true;
    }

private:
    QPointer<const QWidget> m_open;  // may go while events are handled
};

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
        showDetermined(false);
    }
    m_dialog->setWindowTitle(title);
    m_text->setText(text);
    m_dialog->show();
    paintNow(*m_dialog);
}

void ProgressDialog::showDetermined(bool determined) {
    m_dialog->canCancel = determined;
    m_dialog->isCancelled = false;
    m_bar->setRange(0, determined ? kSteps : 0);
    m_bar->setValue(0);
    m_amount->clear();
    m_details->setVisible(determined);
}

ProgressDialog::Transfer::Transfer(ProgressDialog& dialog, const QString& text, QWidget* owner)
    : m_dialog(dialog), m_isOwn(!dialog.m_dialog) {
    if (m_isOwn)
        m_dialog.show(tr("处理状态"), text, owner);
    m_dialog.showDetermined(true);
    paintNow(*m_dialog.m_dialog);
}

ProgressDialog::Transfer::~Transfer() {
    if (!m_dialog.m_dialog)
        return;
    if (m_isOwn)
        m_dialog.CloseProgressDialog();
    else
        m_dialog.showDetermined(false);
}

bool ProgressDialog::Transfer::advance(qint64 done, qint64 total) {
    BusyDialog* dialog = m_dialog.m_dialog;
    if (!dialog)
        return true;
    if (total > 0) {
        const auto inMB = [](qint64 bytes) { return QString::number(static_cast<double>(bytes) / kMiB, 'f', 1); };
        m_dialog.m_bar->setValue(static_cast<int>(done * kSteps / total));
        m_dialog.m_amount->setText(tr("%1 MB / %2 MB").arg(inMB(done), inMB(total)));
    }
    const InputGate gate(dialog);
    QCoreApplication::processEvents(kNoTimers);
    return !m_dialog.m_dialog || !dialog->isCancelled;
}

}  // namespace workbench
