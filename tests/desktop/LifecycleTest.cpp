// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppLogger.h"
#include "Desktop.h"
#include "HangingDisk.h"
#include "HistoryStore.h"
#include "Process.h"
#include "ScriptedServices.h"
#include "TemporaryHome.h"
#include "WaitUntil.h"
#include "WrenfoldApplication.h"

#include <QFileInfo>

#include <csignal>
#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString farewell = u"Application will terminate."_s;

} // namespace

TEST(Lifecycle, LaunchLogsItsStepsInOrder)
{
    const auto application = WrenfoldApplication::launch();
    const QStringList steps{
        u"[INFO] [pid=%1] Launch started. app=Wrenfold bundleID=local.wrenfold "
        "config=~/.wrenfold/config.json log=~/.wrenfold/logs/wrenfold.log"_s.arg(
            application->processId()),
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

TEST(Lifecycle, EverySignalEndsItPromptlyWithItsFarewellAndLeavesNoFile)
{
    const ScriptedServices services({u"--recognition-delay"_s, u"30000"_s});
    services.configure();
    Desktop desktop;
    const QStringList steps{u"Recording started."_s, u"ASR started."_s};
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        for (const int presses : {0, 1, 2}) {
            const auto application = WrenfoldApplication::launch();
            for (const auto &step : steps.first(presses))
                ASSERT_TRUE(WrenfoldApplication::tapUntilLogged(desktop, Key::hotKey, step));
            EXPECT_EQ(recordings().size(), presses > 0 ? 1 : 0);
            // Whoever is impatient sends it twice.
            ::kill(static_cast<pid_t>(application->processId()), signal);
            EXPECT_LT(millisecondsOf([&] { EXPECT_EQ(application->end(signal), 0); }), 2000);
            const auto log = WrenfoldApplication::log();
            EXPECT_EQ(log.filter(farewell), QStringList(log.last()));
            EXPECT_EQ(log.filter(u"[ERROR]"_s), QStringList());
            EXPECT_TRUE(recordings().isEmpty());
        }
}

TEST(Lifecycle, ARelaunchDuringASlowQuitTakesOver)
{
    const auto first = WrenfoldApplication::launch();
    std::unique_ptr<WrenfoldApplication> second;
    {
        const HangingDisk disk(AppLogger::logDirectoryURL().toLocalFile());
        if (!disk.hangs())
            GTEST_SKIP() << "this user has no right to hold up others";
        ::kill(static_cast<pid_t>(first->processId()), SIGTERM);
        second = std::make_unique<WrenfoldApplication>();
        EXPECT_LT(millisecondsOf([&] { EXPECT_EQ(first->waitForExit(), 0); }), 5000);
    }
    const auto finished = u"[pid=%1] Launch finished."_s.arg(second->processId());
    EXPECT_TRUE(WrenfoldApplication::waitForLog(finished));
    EXPECT_EQ(WrenfoldApplication().waitForExit(), 0);
    EXPECT_TRUE(WrenfoldApplication::waitForLog(
        u"[pid=%1] Duplicate launch request received."_s.arg(second->processId())));
    EXPECT_TRUE(second->isRunning());
}

TEST(Lifecycle, ACrashLeavesNoLockAndItsRecordingIsSweptAtTheNextLaunch)
{
    Desktop desktop;
    const auto crashed = WrenfoldApplication::launch();
    const auto started = u"Recording started."_s;
    ASSERT_TRUE(WrenfoldApplication::tapUntilLogged(desktop, Key::hotKey, started));
    EXPECT_EQ(crashed->end(SIGKILL), -1);
    EXPECT_EQ(recordings().size(), 1);
    const auto next = WrenfoldApplication::launch();
    EXPECT_TRUE(waitUntil([] { return recordings().isEmpty(); }));
}

TEST(Lifecycle, TheHistoryIsSavedAndTheLineLoggedWhenTheXServerDies)
{
    const ScriptedServices services;
    services.configure();
    BackgroundProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s});
    ASSERT_TRUE(waitUntil([&server] { return server.canReadLine(); }));
    const auto display = server.readLine().trimmed();
    qputenv("DISPLAY", ':' + display);
    const auto application = WrenfoldApplication::launch();
    {
        // It is still writing then, where this user may hold up others.
        const HangingDisk disk(QFileInfo(HistoryStore::historyURL().toLocalFile()).path());
        for (const auto &step : {u"Recording started."_s, u"Auto paste started."_s}) {
            Desktop desktop;
            ASSERT_TRUE(WrenfoldApplication::tapUntilLogged(desktop, Key::hotKey, step));
        }
        server.kill();
        EXPECT_TRUE(WrenfoldApplication::waitForLog(farewell));
    }
    EXPECT_EQ(application->waitForExit(), 1);
    EXPECT_TRUE(WrenfoldApplication::log().last().contains(farewell));
    EXPECT_EQ(HistoryStore().items().size(), 1);
}
