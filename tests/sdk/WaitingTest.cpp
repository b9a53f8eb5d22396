#include <gtest/gtest.h>
#include <memory>
#include <thread>

#include <QApplication>
#include <QDeadlineTimer>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include "sdk/baseui/ProgressDialog.h"
#include "sdk/baseui/Waiting.h"
#include "sdk/packages/IKpxClientConfigMgr.h"
#include "sdk/packages/ServiceLimits.h"

namespace {

using std::chrono::milliseconds;

/// Wants to be painted again whenever it is, and counts that with everything that must not get in.
template <class Base>
struct Restless : Base {
    bool event(QEvent* event) override {
        switch (event->type()) {
            case QEvent::UpdateRequest:
            case QEvent::Paint:
                ++painted;
                if constexpr (std::is_same_v<Base, QWindow>)
                    this->requestUpdate();
                else
                    this->update();
                if (whenPainted)
                    whenPainted();
                break;
            default:
                disturbed += kDisturbing.contains(event->type());
        }
        return Base::event(event);
    }
    static inline const QList<QEvent::Type> kDisturbing{QEvent::MouseButtonPress, QEvent::KeyPress, QEvent::Close};
    int painted = 0;
    int disturbed = 0;
    std::function<void()> whenPainted;
};

/// The host's dialog; the user cancels when it has been shown `patience` times.
struct Dialog : BIMScrollBar::KnSbInterface {
    Dialog() { Install(this); }
    virtual ~Dialog() { Install(nullptr); }
    void ShowProgressDialog(const std::wstring&, const std::wstring&) override { window->show(); }
    void CloseProgressDialog() override { window->hide(); }
    QWidget* GetWindow() const override { return window->isVisible() ? window.get() : nullptr; }
    bool ShowWaiting(bool canCancel, int64_t done, int64_t total) override {
        shown = {done, total};
        return !canCancel || --patience > 0;
    }
    std::unique_ptr<Restless<QWidget>> window = std::make_unique<Restless<QWidget>>();
    std::pair<int64_t, int64_t> shown;
    int patience = 5;
};

class WaitingTest : public testing::Test {
protected:
    WaitingTest() {
        widget.show();
        window.show();
        window.requestUpdate();
        QCoreApplication::processEvents();
    }
    static void disturb(QObject& target) {
        QCoreApplication::postEvent(
            &target, new QMouseEvent(QEvent::MouseButtonPress, {}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
        QCoreApplication::postEvent(&target, new QKeyEvent(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier));
        QCoreApplication::postEvent(&target, new QCloseEvent);
    }

    Restless<QWidget> widget;
    Restless<QWindow> window;
};

TEST_F(WaitingTest, WindowsArePaintedAndNothingGetsIn) {
    std::promise<void> end;
    bool fired = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { fired = true; });
    timer.start(1);
    QTimer::singleShot(1, [&] { fired = true; });
    disturb(widget);
    disturb(window);
    widget.painted = window.painted = 0;
    bool wasBusy = false;
    widget.whenPainted = [&] {
        wasBusy = wasBusy || QApplication::overrideCursor();
        if (wasBusy && widget.painted > 10 && window.painted > 10) {
            widget.whenPainted = {};
            end.set_value();
        }
    };
    EXPECT_TRUE(BASEUI::Wait(end.get_future(), {.busyAfter = milliseconds(20)}));
    EXPECT_EQ(widget.disturbed + window.disturbed, 0);
    EXPECT_TRUE(widget.isVisible() && window.isVisible());
    EXPECT_FALSE(fired);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    const QDeadlineTimer patience(30000);
    while (!fired && !patience.hasExpired())
        QCoreApplication::processEvents();
    EXPECT_TRUE(fired) << "what was held back comes afterwards";
}

TEST_F(WaitingTest, TheDialogAloneTakesInputAndEndsWhatMayBeGivenUp) {
    Dialog dialog;
    std::promise<void> never;
    const auto future = never.get_future();
    disturb(*dialog.window);
    disturb(widget);
    const auto amount = [] { return BASEUI::Waiting::Amount{7, 9}; };
    EXPECT_FALSE(BASEUI::Wait(future, {.canCancel = true, .amount = amount, .dialogAfter = milliseconds(0)}));
    EXPECT_GE(dialog.window->disturbed, 3);
    EXPECT_EQ(widget.disturbed, 0);
    EXPECT_EQ(dialog.shown, (std::pair<int64_t, int64_t>(7, 9)));
    EXPECT_FALSE(dialog.window->isVisible());

    dialog.patience = 1;
    std::promise<void> soon;
    std::thread work([&] {
        std::this_thread::sleep_for(milliseconds(100));
        soon.set_value();
    });
    EXPECT_TRUE(BASEUI::Wait(soon.get_future(), {.dialogAfter = milliseconds(0)})) << "nothing to cancel here";
    work.join();
}

TEST_F(WaitingTest, ADialogThatIsOpenedMeanwhileCanBeUsed) {
    std::promise<void> end;
    const auto openDialog = [&] {
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] { disturb(widget); });
        QTimer::singleShot(1, &loop, &QEventLoop::quit);
        loop.exec();
        QCoreApplication::processEvents();
        end.set_value();
    };
    QMetaObject::invokeMethod(&widget, openDialog, Qt::QueuedConnection);  // what was posted gets in
    EXPECT_TRUE(BASEUI::Wait(end.get_future()));
    EXPECT_GE(widget.disturbed, 1);
}

TEST(ServiceLimits, EveryKeySetsWhatItNamesAndNonsenseSetsNothing) {
    struct Config final : PROJECTPACKAGE::IKpxClientConfigMgr {
        std::wstring GetValue(const std::wstring& key) const override { return key == name ? text : L""; }
        bool SetValue(const std::wstring&, const std::wstring&) override { return false; }
        std::wstring name;
        std::wstring text;
    } config;
    const auto limits = [&](const wchar_t* name, const wchar_t* text) {
        config.name = name;
        config.text = text;
        const auto read = PROJECTPACKAGE::ReadServiceLimits(&config);
        return std::pair(read.connect.count(), read.silence.count());
    };
    EXPECT_EQ(limits(L"Service/ConnectSeconds", L"9"), std::pair(9L, 30L));
    EXPECT_EQ(limits(L"Service/SilenceSeconds", L"9"), std::pair(5L, 9L));
    for (const wchar_t* text : {L"", L"0", L"-1", L"9s", L"x", L"3601", L"99999999999999999999"})
        EXPECT_EQ(limits(L"Service/SilenceSeconds", text), std::pair(5L, 30L)) << text;
    EXPECT_EQ(PROJECTPACKAGE::ReadServiceLimits(nullptr).connect.count(), 5);
}

}  // namespace
