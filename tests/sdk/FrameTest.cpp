#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <utility>

#include <QCoreApplication>

#include "sdk/basecore/CmdObject.h"
#include "sdk/basecore/ManagerNames.h"

namespace {

using BASECORE::CMD::CmdStatus;

class Command : public BASECORE::CMD::CPushMsgCmdObj {
public:
    std::wstring GetName() const override { return L"command"; }
    bool IsEnable() const override { return enabled; }
    bool RunCommand() override {
        ++runs;
        const bool succeeds = runSucceeds;
        if (const auto work = std::exchange(inRun, {}))
            work();  // may destroy the command
        return succeeds;
    }
    bool FinishCommand() override { return ++finishes > 0; }
    /// Executes it and lets the event loop run.
    bool run(std::function<void()> work = {}) {
        inRun = std::move(work);
        const bool isTaken = Execute();
        QCoreApplication::processEvents();
        return isTaken;
    }

    bool enabled = true;
    bool runSucceeds = true;
    int runs = 0;
    int finishes = 0;
    std::function<void()> inRun;  // once
};

TEST(PushMessageCommand, RunsFromTheEventLoopOnceAtATime) {
    Command command;
    EXPECT_TRUE(command.Execute());
    EXPECT_FALSE(command.Execute());
    EXPECT_EQ(command.runs, 0);
    command.inRun = [&] { EXPECT_EQ(command.GetStatus(), CmdStatus::Running); };
    QCoreApplication::processEvents();
    EXPECT_EQ(command.runs, 1);
    EXPECT_EQ(command.finishes, 1);
    EXPECT_EQ(command.GetStatus(), CmdStatus::Idle);
    EXPECT_EQ(command.GetFault(), L"");

    EXPECT_TRUE(command.run([&] {
        EXPECT_TRUE(command.run());
        EXPECT_EQ(command.runs, 3);
        EXPECT_EQ(command.GetStatus(), CmdStatus::Running);
    }));
    EXPECT_EQ(command.runs, 3);
    EXPECT_EQ(command.GetStatus(), CmdStatus::Idle);
}

TEST(PushMessageCommand, DoesNotRunWhenDisabledStoppedOrGone) {
    Command command;
    command.enabled = false;
    EXPECT_FALSE(command.Execute());
    command.enabled = true;
    command.Execute();
    command.Stop();
    std::make_unique<Command>()->Execute();
    QCoreApplication::processEvents();
    EXPECT_EQ(command.runs, 0);
}

TEST(PushMessageCommand, WhatARunFailsThrowsOrDestroysEndsThere) {
    Command command;
    command.runSucceeds = false;
    command.run();
    EXPECT_EQ(command.finishes, 0);
    EXPECT_NE(command.GetFault(), L"");
    command.Execute();
    EXPECT_EQ(command.GetFault(), L"");
    command.inRun = [] { throw std::runtime_error("lost"); };
    QCoreApplication::processEvents();
    EXPECT_EQ(command.GetFault(), L"lost");
    EXPECT_EQ(command.GetStatus(), CmdStatus::Idle);

    auto gone = std::make_unique<Command>();
    gone->run([&] { gone.reset(); });
    EXPECT_EQ(gone, nullptr);
}

TEST(ManagerNames, TheBlankAtTheEndBelongsToTheName) {
    EXPECT_STREQ(BASECORE::NAMES::kAuthentication, L"CENTRALAUTHENTICATIONSERVICE_MGR ");
}

}  // namespace
