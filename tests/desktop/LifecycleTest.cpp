// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Process.h"
#include "ScriptedServices.h"
#include "TemporaryHome.h"
#include "WaitUntil.h"
#include "WrenfoldApplication.h"

#include <csignal>
#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Waits until this is what the log ends with.
bool isNow(const QString &line, std::chrono::milliseconds limit = 10s)
{
    return waitUntil(
        [&line] {
            const auto log = WrenfoldApplication::log();
            return !log.isEmpty() && log.last().contains(line);
        },
        limit);
}

// Presses the hotkey until it has started this: a press that comes in the instant between a line of
// the log and what it announces is ignored.
void press(const QString &started)
{
    ASSERT_TRUE(waitUntil([&started] {
        EXPECT_EQ(runCommand(u"xdotool key super+shift+space"_s).exitCode, 0);
        return isNow(started, 3s);
    }));
}

const QString farewell = u"Application will terminate."_s;

} // namespace

TEST(Lifecycle, LaunchLogsItsStepsInOrder)
{
    const WrenfoldApplication application;
    ASSERT_TRUE(isNow(u"Launch finished."_s));
    const QStringList steps{
        u"[INFO] [pid=%1] Launch started. app=Wrenfold bundleID=local.wrenfold "
        "config=~/.wrenfold/config.json log=~/.wrenfold/logs/wrenfold.log"_s.arg(
            application.processId()),
        u"Single instance lock acquired. path="_s,
        u"Status menu icon loaded."_s,
        u"Loading config."_s,
        u"Config loaded. createdTemplate=true doubaoKeySet=false deepSeekKeySet=false"_s,
        u"Registering hotkey. displayName=⌘⇧Space modifierOnly=false"_s,
        u"Hotkey registered. displayName=⌘⇧Space"_s,
        u"Launch finished."_s,
    };
    const auto log = WrenfoldApplication::log();
    ASSERT_GE(log.size(), steps.size());
    for (qsizetype i = 0; i < steps.size(); ++i)
        EXPECT_TRUE(log[i].contains(steps[i])) << qPrintable(log[i]);
}

TEST(Lifecycle, OneOfTwentyLaunchedAtOnceStaysAndTheOthersHandOver)
{
    std::vector<std::unique_ptr<WrenfoldApplication>> applications;
    for (int i = 0; i < 20; ++i)
        applications.push_back(std::make_unique<WrenfoldApplication>());
    const auto running = [&] {
        return std::ranges::count_if(applications,
                                     [](const auto &one) { return one->isRunning(); });
    };
    ASSERT_TRUE(waitUntil([&] { return running() == 1; }, 60s));
    ASSERT_TRUE(WrenfoldApplication::waitForLog(u"Launch finished."_s));
    for (const auto &application : applications) {
        EXPECT_TRUE(application->isRunning() || application->waitForExit() == 0);
    }
    const auto log = WrenfoldApplication::log();
    EXPECT_EQ(log.filter(u"lock acquired"_s).size(), 1);
    EXPECT_EQ(log.filter(u"Duplicate launch detected."_s).size(), 19);
    EXPECT_EQ(log.filter(farewell).size(), 19);
}

TEST(Lifecycle, ASecondLaunchShowsTheFirstOnesWindow)
{
    WrenfoldApplication first;
    ASSERT_TRUE(isNow(u"Launch finished."_s));
    EXPECT_EQ(WrenfoldApplication().waitForExit(), 0);
    const auto shown = u"[pid=%1] Duplicate launch request received. Showing main window."_s.arg(
        first.processId());
    EXPECT_TRUE(WrenfoldApplication::waitForLog(shown));
    runCommand(
        u"dbus-send --session --type=signal /local/wrenfold local.wrenfold.showMainWindow"_s);
    EXPECT_TRUE(WrenfoldApplication::waitForLog(shown, 2));
    EXPECT_TRUE(first.isRunning());
}

TEST(Lifecycle, EverySignalEndsItPromptlyWithItsFarewellAndLeavesNoFile)
{
    const ScriptedServices services({u"--recognition-delay"_s, u"30000"_s});
    services.configure();
    int times = 0;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        for (const int presses : {0, 1, 2}) {
            WrenfoldApplication application;
            ASSERT_TRUE(isNow(u"Launch finished."_s));
            if (presses > 0)
                press(u"Recording started."_s);
            if (presses > 1)
                press(u"ASR started."_s);
            EXPECT_EQ(recordings().size(), presses > 0 ? 1 : 0);
            EXPECT_LT(millisecondsOf([&] { EXPECT_EQ(application.end(signal), 0); }), 2000);
            EXPECT_EQ(WrenfoldApplication::log().filter(farewell).size(), ++times);
            EXPECT_TRUE(recordings().isEmpty());
        }
}

TEST(Lifecycle, LeftoversOfACrashAreSweptAtTheNextLaunch)
{
    {
        WrenfoldApplication application;
        ASSERT_TRUE(isNow(u"Launch finished."_s));
        press(u"Recording started."_s);
        EXPECT_EQ(application.end(SIGKILL), -1);
    }
    EXPECT_EQ(recordings().size(), 1);
    const WrenfoldApplication next;
    EXPECT_TRUE(waitUntil([] { return recordings().isEmpty(); }));
}

TEST(Lifecycle, TheLineIsLoggedWhenTheXServerDies)
{
    QProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s});
    ASSERT_TRUE(waitUntil([&server] { return server.canReadLine(); }));
    const auto display = QString::fromLatin1(server.readLine()).trimmed();
    const WrenfoldApplication application({u"DISPLAY=:"_s + display});
    ASSERT_TRUE(isNow(u"Launch finished."_s));
    server.kill();
    EXPECT_TRUE(waitUntil([&application] { return !application.isRunning(); }));
    EXPECT_TRUE(WrenfoldApplication::log().last().contains(farewell));
    server.waitForFinished();
}
