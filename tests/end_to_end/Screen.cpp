#include "tests/end_to_end/Screen.h"

#include <cstdlib>

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

namespace screen {
namespace {

constexpr int kPatience = 30000;  // milliseconds
constexpr int kStepsToClick = 100;
constexpr int kCatalogsEnd = 200;  // where the left half of the main window ends
constexpr int kTableBegins = 360;

void pictureAtOnce(const char* name) {
    static int number = 1;  // the log-in's picture is the first
    const QString file =
        QString("%1/%2-%3.png").arg(qEnvironmentVariable("SMOKE_DIR")).arg(++number, 2, 10, QChar('0')).arg(name);
    QGuiApplication::primaryScreen()->grabWindow(0).save(file);
    std::printf("smoke: %s\n", qUtf8Printable(file));
    std::fflush(stdout);
}

/// Waits until typing goes into the window. The hand on the mouse trembles: a display takes a request for the keyboard
/// only with the time of a recent event, and clicks and keys here are not the display's. On a busy machine the window
/// is clicked at last, as a person would.
void expectKeyboardIn(QWindow* window) {
    const QPoint hand = QCursor::pos();
    int step = 0;
    const auto hasKeyboard = [&] {
        QCursor::setPos(hand + QPoint(++step % 2, 0));
        if (step % kStepsToClick == 0)
            window->requestActivate();
        return QGuiApplication::focusWindow() == window;
    };
    expectSoon(hasKeyboard, "the keyboard is where it belongs");
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

/// The window of that title, unless it is the opener, which may be titled so too.
QQuickView* findView(const QString& title, const QWindow* opener) {
    const auto windows = QGuiApplication::allWindows();
    for (QWindow* window : windows)
        if (auto* view = qobject_cast<QQuickView*>(window); view && view != opener && view->isExposed())
            if (support::findItem(view->contentItem(), support::has("title", title)))
                return view;
    return nullptr;
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

QWidget* findWidget(const std::function<bool(QWidget*)>& test) {
    const auto widgets = QApplication::allWidgets();
    const auto found =
        std::find_if(widgets.begin(), widgets.end(), [&](QWidget* w) { return w->isVisible() && test(w); });
    return found == widgets.end() ? nullptr : *found;
}

DuringWait::DuringWait(const char* pictureName, std::function<bool(QWidget*)> test, std::function<void()> then)
    : m_name(pictureName), m_test(std::move(test)), m_then(std::move(then)) {
    qApp->installEventFilter(this);
}

bool DuringWait::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(watched) : nullptr;
    if (widget && !m_hasHappened && widget->window()->windowTitle() == "处理状态" && m_test(widget)) {
        m_hasHappened = true;
        pictureAtOnce(m_name);
        if (m_then)
            m_then();
    }
    return false;
}

QQuickItem* View::there(const support::ItemTest& test, const QString& what) const {
    QQuickItem* item = nullptr;
    expectSoon([&] { return (item = find(test)) != nullptr; }, "the screen shows " + what);
    return item;
}

QQuickItem* View::expectText(const QString& text) const {
    const auto shows = [&](QQuickItem* item) {
        return item->property("text").toString().trimmed() == text || item->property("title") == text;
    };
    return there(shows, text);
}

QQuickItem* View::expectBeginning(const QString& text) const {
    return there([&](QQuickItem* item) { return item->property("text").toString().startsWith(text); }, text);
}

void View::press(Pane pane, const QString& tooltip) {
    const auto isIt = [&](QQuickItem* item) {
        const bool inCatalogs = support::centreOf(item).x() < kCatalogsEnd;
        return item->property("tooltipText") == tooltip && inCatalogs == (pane == Pane::Catalogs) && item->isEnabled();
    };
    click(there(isIt, "an enabled button " + tooltip));
}

void View::selectCatalog(const QString& text) {
    const auto isIt = [&](QQuickItem* item) {
        return item->property("text") == text && support::centreOf(item).x() < kCatalogsEnd;
    };
    click(there(isIt, text));
}

View& View::search(const QString& hint, const QString& text) {
    click(there(support::has("placeholderText", hint), hint)).retype(text);
    return *this;
}

void View::reach(QQuickItem* item) {
    focus(item);  // to which the form scrolls
    const auto isInSight = [&] {
        const int y = support::centreOf(item).y();
        return y > 0 && y < m_view->height();
    };
    expectSoon(isInSight, "the form scrolls to what is wanted");
    click(item);
}

void View::enter(const QString& caption, const QString& text) {
    expect(named(caption), "the form has the field " + caption);
    reach(named(caption)->property("field").value<QQuickItem*>());
    retype(text).key(Qt::Key_Tab);
}

void View::pressButton(const QString& text, QQuickItem* within) {
    QQuickItem* button = support::findItem(within ? within : m_view->contentItem(), [&](QQuickItem* item) {
        return item->property("text") == text && item->inherits("QQuickButton");
    });
    expect(button && button->isEnabled(), "there is a button " + text);
    reach(button);
}

void View::choosePeople(const QString& caption, const char* pictureName, const QList<QPair<QString, QString>>& people) {
    inDialog(
        "选择" + caption.chopped(1), [&] { pressButton("选择", named(caption)); },
        [&](View& picker) {
            for (const auto& [searched, shown] : people) {
                picker.search("搜索联系人", searched).key(Qt::Key_Return);
                QQuickItem* label = picker.expectText(shown);
                QQuickItem* box = support::findItem(label->parentItem(), [](QQuickItem* item) {
                    return item->property("checkState").isValid() && item->width() > 0;
                });
                picker.click(box ? box : label);
            }
            picture(pictureName);
            picker.clickText("确定");
        });
}

void View::upload(const QString& path) {
    inWidgets(
        "打开", [&] { pressButton("本地上传"); },
        [&](QWidget* dialog) {
            auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
            expect(name != nullptr, "the file dialog takes a name");
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
        });
}

QQuickItem* View::topCell(const support::ItemTest& test) const {
    QQuickItem* best = nullptr;
    find([&](QQuickItem* item) {
        if (taskOf(item) && test(item) && (!best || support::centreOf(item).y() < support::centreOf(best).y()))
            best = item;
        return false;
    });
    return best;
}

QQuickItem* View::cell(const support::ItemTest& test) {
    QQuickItem* cell = nullptr;
    const auto isInSight = [&] {
        cell = topCell(test);
        if (!cell)
            return false;
        const QPoint centre = support::centreOf(cell);
        const bool isLeft = centre.x() < kTableBegins;
        if (!isLeft && centre.x() < m_view->width() - 20)
            return true;
        const QPointF place(m_view->width() * 0.6, centre.y());
        QWheelEvent wheel(place, m_view->mapToGlobal(place.toPoint()), {}, {isLeft ? 480 : -480, 0}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_view, &wheel);
        return false;
    };
    expectSoon(isInSight, "there is such a cell in sight");
    return cell;
}

QString View::first(const char* property) const {
    QQuickItem* cell = topCell([](QQuickItem*) { return true; });
    return cell ? taskOf(cell)->property(property).toString() : QString();
}

void View::expectFirst(const char* property, const QString& value) const {
    expectSoon([&] { return first(property) == value; }, QString("the first task's %1 is %2").arg(property, value));
}

void View::checkFirst(const QString& taskId) {
    click(cell([](QQuickItem* item) {
        return item->property("text").isValid() && item->property("text") == taskOf(item)->property("name");
    }));
    if (first("selected") != "true")
        key(Qt::Key_Space);
    expect(first("selected") == "true", "the space bar checks the row");
    expect(first("id") == taskId, "the task is checked");
}

void View::clickEdit() {
    click(cell(support::has("iconSource", QUrl("qrc:/ui/Images/edit.png"))));
}

void inDialog(const QString& title, const std::function<void()>& open, const std::function<void(View&)>& steps) {
    const QPointer<QWindow> opener = QGuiApplication::focusWindow();
    inModal(title, open, [&] {
        QQuickView* view = findView(title, opener);
        if (!view || qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            return false;  // a message is answered first
        expectKeyboardIn(view);
        const QPointer<QWidget> dialog = QApplication::activeModalWidget();
        View page(view);
        steps(page);
        if (dialog)
            dialog->close();
        return true;
    });
}

void inWidgets(const QString& title, const std::function<void()>& open, const std::function<void(QWidget*)>& steps) {
    inModal(title, open, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        const bool isIt =
            dialog && dialog->windowTitle() == title && dialog->windowHandle() && dialog->windowHandle()->isExposed();
        if (isIt)
            steps(dialog);
        return isIt;
    });
}

void answering(const char* pictureName, const QString& text, const std::function<void()>& ask) {
    inModal(text, ask, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return false;
        expect(box->text().startsWith(text), QString("the message box says: %1, not: %2").arg(text, box->text()));
        picture(pictureName);
        box->buttons().first()->click();
        return true;
    });
}

}  // namespace screen
