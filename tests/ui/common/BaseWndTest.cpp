#include <gtest/gtest.h>

#include <QDialog>
#include <QFileInfo>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

#include "tests/support/ModalWindow.h"
#include "ui/common/BaseWnd.h"

using support::ModalWindow;

namespace {

class PlainWnd : public CBaseWnd {
    Q_OBJECT

public:
    using CBaseWnd::CBaseWnd;
    void show() {
        frame().dialog()->setMinimumSize(400, 300);
        frame().load(QUrl::fromLocalFile(QFileInfo(SOURCE_ROOT "/tests/ui/common/Window.qml").absoluteFilePath()));
        connectRootObject();
        frame().run();
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
    PlainWnd wnd(&host);
    QSignalSpy destroyed(wnd.frame().view(), &QObject::destroyed);
    ModalWindow::run([&wnd] { wnd.show(); },
                     [&](ModalWindow& window) {
                         EXPECT_EQ(window.dialog(), wnd.frame().dialog());
                         EXPECT_EQ(window.dialog()->parentWidget(), &host);
                         EXPECT_TRUE(window.dialog()->windowFlags().testFlag(Qt::FramelessWindowHint));
                         EXPECT_TRUE(window.dialog()->isModal());
                         EXPECT_EQ(window.dialog()->windowTitle(), "页面");
                         EXPECT_EQ(window.view()->rootObject()->width(), window.dialog()->width());
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
    ModalWindow::run(
        [&wnd] { wnd.show(); },
        [&](ModalWindow& window) {
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

#include "BaseWndTest.moc"
