#include <gtest/gtest.h>

#include <QFileInfo>
#include <QSignalSpy>

#include "tests/support/ModalWindow.h"
#include "ui/common/BaseWnd.h"

using support::ModalWindow;

namespace {

class PlainWnd : public CBaseWnd {
    Q_OBJECT

public:
    using CBaseWnd::CBaseWnd;
    void show(const ModalWindow::Steps& steps) {
        const auto open = [this] {
            frame().dialog()->setMinimumSize(400, 300);
            frame().load(QUrl::fromLocalFile(QFileInfo(SOURCE_ROOT "/tests/ui/common/Window.qml").absoluteFilePath()));
            connectRootObject();
            frame().run();
        };
        ModalWindow::run(open, steps);
    }
};

class LinkingWnd : public PlainWnd {
    Q_OBJECT

public:
    using PlainWnd::PlainWnd;
    int linked = 0;

public slots:
    void onConnectBimClick() { ++linked; }
};

void tell(const ModalWindow& window, const char* signal) {
    QMetaObject::invokeMethod(window.view()->rootObject(), signal);
}

}  // namespace

TEST(BaseWnd, BuildsAFramelessDialogAndOutlivesIt) {
    QWidget host;
    host.setGeometry(200, 100, 500, 400);
    PlainWnd wnd(&host);
    QSignalSpy destroyed(wnd.frame().view(), &QObject::destroyed);
    wnd.show([&](ModalWindow& window) {
        const QDialog* dialog = window.dialog();
        EXPECT_EQ(dialog, wnd.frame().dialog());
        EXPECT_EQ(dialog->parentWidget(), &host);
        EXPECT_TRUE(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
        EXPECT_TRUE(dialog->isModal());
        EXPECT_EQ(dialog->windowTitle(), "页面");
        EXPECT_EQ(window.view()->rootObject()->width(), dialog->width());
        EXPECT_EQ(dialog->geometry().center(), host.geometry().center());
        tell(window, "connectBimClick");
        tell(window, "close");
    });
    EXPECT_FALSE(wnd.frame().dialog());
    EXPECT_FALSE(wnd.frame().view());
    EXPECT_EQ(destroyed.count(), 1);
    wnd.onTitlebarPositionChanged();  // without a dialog nothing happens
    wnd.slotToggleMaximized();
}

TEST(BaseWnd, SlotsStandInTheirOrder) {
    const QMetaObject& meta = CBaseWnd::staticMetaObject;
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << meta.method(i).methodSignature();
    EXPECT_EQ(names, QStringList({"slotToggleMaximized()", "onTitlebarPressed()", "onTitlebarPositionChanged()",
                                  "onTitleBarDoubleClicked()"}));
}

TEST(BaseWnd, TitleBarDragsMaximisesAndLinks) {
    LinkingWnd wnd(nullptr);
    wnd.show([&](ModalWindow& window) {
        const QPoint before = window.dialog()->pos();
        QCursor::setPos(300, 300);
        tell(window, "titlebarPressed");
        for (const QPoint at : {QPoint(310, 305), QPoint(250, 410), QPoint(290, 330)}) {
            QCursor::setPos(at);
            tell(window, "titlebarPositionChanged");
        }
        // A window manager takes its time to tell the dialog where it is.
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.dialog()->pos() - before == QPoint(-10, 30); }));
        for (const char* signal : {"toggleMaximized", "titlebarDbClick"}) {
            const bool was = window.dialog()->isMaximized();
            tell(window, signal);
            ModalWindow::settle();
            EXPECT_NE(window.dialog()->isMaximized(), was) << signal;
            // The hand that made a double click still moves: neither a maximised dialog nor a restored one follows.
            const QPoint place = window.dialog()->pos();
            if (window.dialog()->isMaximized())
                tell(window, "titlebarPressed");
            QCursor::setPos(QCursor::pos() + QPoint(20, 20));
            tell(window, "titlebarPositionChanged");
            ModalWindow::settle();
            EXPECT_EQ(window.dialog()->pos(), place) << signal;
        }
        tell(window, "connectBimClick");
        EXPECT_EQ(wnd.linked, 1);
    });
}

TEST(BaseWnd, BelongsToItsOpenerAndIsMarkedWhenThatIsClicked) {
    QWidget host;
    PlainWnd opener(&host);
    PlainWnd wnd(&host);
    opener.show([&](ModalWindow& below) {
        below.dialog()->setGeometry(100, 50, 640, 480);
        wnd.show([&](ModalWindow& window) {
            QWindow* handle = window.dialog()->windowHandle();
            EXPECT_EQ(handle->transientParent(), below.dialog()->windowHandle());
            EXPECT_EQ(window.dialog()->geometry().center(), below.dialog()->geometry().center());
            // As a display does after a click there; a click on the dialog itself means nothing.
            const auto marks = [&] { return window.view()->rootObject()->property("marks").toInt(); };
            for (const auto& [place, isBeside] : {std::pair(QPoint(110, 60), 1), {handle->geometry().center(), 0}}) {
                const int before = marks();
                QCursor::setPos(place);
                handle->requestActivate();
                ModalWindow::settle();
                EXPECT_TRUE(QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == window.view(); }));
                EXPECT_EQ(marks() - before, isBeside);
            }
        });
    });
}

TEST(BaseWnd, ClosesOnlyWhenItMay) {
    PlainWnd wnd(nullptr);
    int asked = 0;
    wnd.frame().setMayClose([&] { return ++asked > 3; });
    wnd.show([&](ModalWindow& window) {
        tell(window, "close");
        window.dialog()->reject();
        window.dialog()->close();
        EXPECT_TRUE(window.dialog()->isVisible());
        tell(window, "close");
        EXPECT_FALSE(window.dialog()->isVisible());
    });
    EXPECT_EQ(asked, 4);
}

TEST(BaseWnd, IsResizedAtItsEdgesDownToItsMinimum) {
    PlainWnd wnd(nullptr);
    wnd.show([&](ModalWindow& window) {
        const QRect before(100, 100, 500, 400);  // at least 400 by 300
        const std::tuple<QPoint, QPoint, QRect> rows[] = {
            {{1, 200}, {-30, 9}, {70, 100, 530, 400}},     {{1, 200}, {300, 0}, {200, 100, 400, 400}},
            {{498, 200}, {20, 9}, {100, 100, 520, 400}},   {{250, 1}, {9, 900}, {100, 200, 500, 300}},
            {{250, 399}, {9, -900}, {100, 100, 500, 300}}, {{499, 392}, {10, 20}, {100, 100, 510, 420}},
            {{2, 3}, {-10, -20}, {90, 80, 510, 420}},      {{250, 200}, {50, 50}, before}};
        for (const auto& [from, moved, expected] : rows) {
            window.dialog()->setGeometry(before);
            QTest::mousePress(window.view(), Qt::LeftButton, {}, from);
            const QPoint at = window.view()->mapToGlobal(from) + moved;
            QTest::mouseMove(window.view(), window.view()->mapFromGlobal(at));
            QTest::mouseRelease(window.view(), Qt::LeftButton, {}, window.view()->mapFromGlobal(at));
            EXPECT_EQ(window.dialog()->geometry(), expected) << from.x() << " " << from.y();
        }
        window.dialog()->showMaximized();
        ModalWindow::settle();
        QTest::mouseMove(window.view(), {1, 200});
        EXPECT_EQ(window.view()->cursor().shape(), Qt::ArrowCursor) << "a maximised one stays";
    });
}

#include "BaseWndTest.moc"
