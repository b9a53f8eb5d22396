#include "host/documents/DocumentWindow.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QScreen>
#include <QStackedWidget>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include "host/documents/DocumentKind.h"
#include "host/documents/DocumentView.h"
#include "host/platform/Aside.h"
#include "host/shell/Look.h"
#include "sdk/baseui/FileDialog.h"
#include "sdk/baseui/MessageBox.h"

namespace workbench {
namespace {

constexpr double kShareOfScreen = 0.7;
constexpr double kZoomStep = 1.25;
constexpr qint64 kBeginning = 64;
constexpr int kKeyboardTries = 20;
constexpr int kKeyboardPause = 50;  // milliseconds
constexpr qint64 kChunk = 1024LL * 1024;

/// Why it could not be copied; the target is whole or as it was.
QString copyFile(const QString& from, const QString& to) {
    QFile source(from);
    QSaveFile target(to);
    if (!source.open(QIODevice::ReadOnly))
        return DocumentWindow::tr("缓存中的文件已不在，请重新打开资料。");
    if (!target.open(QIODevice::WriteOnly))
        return DocumentWindow::tr("无法写入所选的位置，请检查权限。");
    bool good = true;
    while (good && !source.atEnd()) {
        const QByteArray bytes = source.read(kChunk);
        good = !bytes.isEmpty() && target.write(bytes) == bytes.size();
    }
    return good && target.commit() ? QString() : DocumentWindow::tr("无法写入文件，磁盘空间可能不足。");
}

/// A display takes a request for the keyboard only with the time of a recent event, so it is asked repeatedly: without
/// the keyboard, Escape would go to the dialog behind, which makes the windows that belong to it "active" as well.
void askForKeyboard(QWidget* window, int tries) {
    if (tries == 0 || !window->isVisible() || QGuiApplication::focusWindow() == window->windowHandle())
        return;
    window->raise();
    window->activateWindow();
    QTimer::singleShot(kKeyboardPause, window, [window, tries] { askForKeyboard(window, tries - 1); });
}

}  // namespace

bool launchOutside(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

DocumentWindow::DocumentWindow(QString path, const QString& name, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),  // stays above its owner
      m_path(std::move(path)),
      m_name(name),
      m_bar(new QToolBar),
      m_said(new QLabel),
      m_pages(new QStackedWidget),
      m_notice(new QLabel),
      m_view(createDocumentView(documentKind(name), m_pages)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(name);
    const QSize room = (owner ? owner->screen() : QGuiApplication::primaryScreen())->availableSize();
    resize(room * kShareOfScreen);
    m_said->setTextFormat(Qt::PlainText);
    m_said->setStyleSheet(look::kFaintText);
    m_pages->addWidget(createNotice());
    if (m_view) {
        m_pages->addWidget(m_view);
        connect(m_view, &DocumentView::said, m_said, &QLabel::setText);
    }
    createBar();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_bar);
    layout->addWidget(m_pages, 1);
}

void DocumentWindow::createBar() {
    const auto add = [this](const QString& text, const QKeySequence& keys, auto slot) {
        QAction* action = m_bar->addAction(text, this, slot);
        action->setShortcut(keys);
        action->setToolTip(QString("%1（%2）").arg(text, keys.toString(QKeySequence::NativeText)));
        m_bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
        return action;
    };
    if (m_view) {
        add(tr("缩小"), QKeySequence("Ctrl+-"), [this] { m_view->zoomBy(1 / kZoomStep); });
        add(tr("放大"), QKeySequence("Ctrl+="), [this] { m_view->zoomBy(kZoomStep); });
        add(tr("适合窗口"), QKeySequence("Ctrl+0"), [this] { m_view->fit(); });
    }
    auto* stretch = new QWidget;
    stretch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_bar->addWidget(stretch);
    m_bar->addWidget(m_said);
    add(tr("另存为…"), QKeySequence("Ctrl+S"), [this] { saveAs(m_path, m_name, this); });
}

QWidget* DocumentWindow::createNotice() {
    m_notice->setObjectName("notice");
    m_notice->setAlignment(Qt::AlignCenter);
    m_notice->setWordWrap(true);
    m_notice->setTextFormat(Qt::PlainText);
    auto* save = new QPushButton(tr("另存为…"));
    save->setProperty("primary", true);
    connect(save, &QPushButton::clicked, this, [this] { saveAs(m_path, m_name, this); });
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setSpacing(16);
    layout->addStretch();
    layout->addWidget(m_notice);
    layout->addWidget(save, 0, Qt::AlignHCenter);
    layout->addStretch();
    return page;
}

void DocumentWindow::say(const QString& notice) {
    m_notice->setText(notice);
    m_pages->setCurrentIndex(0);
    m_pages->currentWidget()->findChild<QPushButton*>()->setFocus();
}

bool DocumentWindow::open(const Launcher& launcher) {
    if (m_view)
        m_pages->setCurrentWidget(m_view);
    show();
    askForKeyboard(this, kKeyboardTries);
    if (!m_view)
        return launch(launcher);
    m_view->setFocus();
    if (const QString why = m_view->open(m_path); !why.isEmpty()) {
        say(why + "\n" + tr("可以另存后用其他程序打开。"));
        for (QAction* action : m_bar->actions())
            if (!action->text().isEmpty() && action != m_bar->actions().last())
                action->setEnabled(false);
        return false;
    }
    return true;
}

bool DocumentWindow::launch(const Launcher& launcher) {
    QFile file(m_path);
    const bool isReadable = file.open(QIODevice::ReadOnly);
    if (isReadable && isProgram(file.read(kBeginning))) {
        say(tr("文件的内容是可执行程序，不能打开。"));
        return false;
    }
    if (documentKind(m_name) == DocumentKind::Unknown) {
        say(tr("这种类型的文件不能直接打开，可以另存。"));
        return false;
    }
    const bool launched = launcher(m_path);
    say(launched ? tr("已交给系统中的程序打开。没有反应时，可以另存后再打开。")
                 : tr("系统中没有能打开这种文件的程序，可以另存。"));
    return launched;
}

void DocumentWindow::saveAs(const QString& path, const QString& name, QWidget* owner) {
    const QString proposed = safeFileName(name);
    const QString extension = proposed.section('.', -1);
    CFileDialog dialog(false, proposed.contains('.') ? extension.toStdWString() : std::wstring(),
                       proposed.toStdWString(), CFileDialog::kOverwritePrompt, tr("所有文件|*||").toStdWString(),
                       owner);
    if (dialog.DoModal() != CFileDialog::Result::Ok)
        return;
    const QString target = QDir::fromNativeSeparators(QString::fromStdWString(dialog.GetPathName()));
    if (const QString why = aside([&] { return copyFile(path, target); }); !why.isEmpty())
        BASEUI::ShowMessageBox(why.toStdWString(), owner);
}

}  // namespace workbench
