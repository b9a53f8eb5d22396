#include "tests/end_to_end/Screen.h"

#include <cstdlib>

#include <QApplication>
#include <QCursor>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include "tests/support/QuickPilot.h"

namespace screen {
namespace {

constexpr int kPatience = 30000;  // milliseconds
constexpr int kStepsToClick = 100;
constexpr int kCatalogsEnd = 200;  // where the left half of the main window ends

QQuickItem* findInPane(QQuickView* view, Pane pane, const char* property, const QString& value) {
    return support::findItem(view->contentItem(), [&](QQuickItem* item) {
        const bool inCatalogs = support::centreOf(item).x() < kCatalogsEnd;
        return item->property(property) == value && inCatalogs == (pane == Pane::Catalogs);
    });
}

/// Waits until typing goes into the window. The hand on the mouse trembles: a display takes a request for the keyboard
/// only with the time of a recent event, and clicks and keys here are not the display's. On a busy machine the window
/// is clicked at last, as a person would.
void expectKeyboardIn(QWindow* window) {
    const QPoint hand = QCursor::pos();
    int step = 0;
    expectSoon(
        [&] {
            QCursor::setPos(hand + QPoint(++step % 2, 0));
            if (step % kStepsToClick == 0)
                window->requestActivate();
            return QGuiApplication::focusWindow() == window;
        },
        "the keyboard is where it belongs");
}

/// Calls `open`, which runs a modal loop, and `steps` from within until that says that it has found its dialog.
void inModal(const QString& what, const std::function<void()>& open, const std::function<bool()>& steps) {
    const QPointer<QWindow> before = QGuiApplication::focusWindow();
    bool isBusy = false;
    bool done = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, qApp, [&] {
        if (isBusy)
            return;  // the steps wait for something
        isBusy = true;
        done = steps();
        isBusy = false;
        if (done)
            poll.stop();
    });
    poll.start(30);
    open();
    expectSoon([&] { return done; }, "there is a dialog: " + what);
    if (before && before->isVisible())
        expectKeyboardIn(before);
}

}  // namespace

void expect(bool holds, const QString& what) {
    if (holds)
        return;
    picture("failed");
    std::fprintf(stderr, "smoke: not so: %s\n", qUtf8Printable(what));
    std::fflush(nullptr);
    std::_Exit(1);  // modal loops are open; nothing here is to be unwound
}

void expectSoon(const std::function<bool()>& holds, const QString& what) {
    expect(QTest::qWaitFor(holds, kPatience), what);
}

void picture(const char* name) {
    QTest::qWait(150);  // what was just changed is drawn
    pictureAtOnce(name);
}

void pictureAtOnce(const char* name) {
    static int number = 1;  // the log-in's picture is the first
    const QString file = QStringLiteral("%1/%2-%3.png")
                             .arg(qEnvironmentVariable("SMOKE_DIR"))
                             .arg(++number, 2, 10, QLatin1Char('0'))
                             .arg(QLatin1String(name));
    QGuiApplication::primaryScreen()->grabWindow(0).save(file);
    std::printf("smoke: %s\n", qUtf8Printable(file));
    std::fflush(stdout);
}

void inDialog(const QString& title, const std::function<void()>& open, const std::function<void(QQuickView*)>& steps) {
    const auto find = [&] {
        return qobject_cast<QQuickView*>(
            support::findWindow([&](QQuickItem* item) { return item->property("title") == title; }));
    };
    inModal(title, open, [&] {
        QQuickView* view = find();
        if (!view || !view->isExposed())
            return false;
        expectKeyboardIn(view);
        const QPointer<QWidget> dialog = QApplication::activeModalWidget();
        steps(view);
        if (dialog)
            dialog->close();
        return true;
    });
}

void inWidgets(const QString& title, const std::function<void()>& open, const std::function<void(QWidget*)>& steps) {
    inModal(title, open, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || dialog->windowTitle() != title || !dialog->windowHandle() ||
            !dialog->windowHandle()->isExposed())
            return false;
        steps(dialog);
        return true;
    });
}

void answering(const char* pictureName, const QString& text, const std::function<void()>& ask) {
    inModal(text, ask, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return false;
        expect(box->text().startsWith(text),
               QStringLiteral("the message box says: %1, not: %2").arg(text, box->text()));
        if (pictureName)
            picture(pictureName);
        box->buttons().first()->click();
        return true;
    });
}

void press(QQuickView* view, Pane pane, const QString& tooltip) {
    QQuickItem* button = findInPane(view, pane, "tooltipText", tooltip);
    expect(button != nullptr, "there is a button " + tooltip);
    expect(button->isEnabled(), "enabled is the button " + tooltip);
    support::click(button);
    QTest::qWait(100);
}

void selectCatalog(QQuickView* view, const QString& text) {
    QQuickItem* row = nullptr;
    expectSoon([&] { return (row = findInPane(view, Pane::Catalogs, "text", text)) != nullptr; },
               "the tree shows " + text);
    support::click(row);
    QTest::qWait(100);
}

void clickText(QQuickView* view, const QString& text) {
    expectText(view, text);
    support::click(support::findByText(view, text));
    QTest::qWait(100);
}

void expectText(QQuickView* view, const QString& text) {
    const auto shows = [&](QQuickItem* item) {
        return item->property("text").toString().trimmed() == text || item->property("title") == text;
    };
    expectSoon([&] { return support::findItem(view->contentItem(), shows) != nullptr; }, "the screen shows " + text);
}

}  // namespace screen
