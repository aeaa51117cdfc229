// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "InstanceChannel.h"
#include "Process.h"
#include "ScriptedServices.h"
#include "WaitUntil.h"
#include "WrenfoldApplication.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The exit status of the program with these options, which it says one line about when it is not 0.
int statusOf(const QString &options, const QString &within = {})
{
    const auto result = runCommand(within + WrenfoldApplication::executable() + u' ' + options);
    EXPECT_EQ(result.errors.count('\n'), result.exitCode == 0 ? 0 : 1) << result.errors.data();
    return result.exitCode;
}

bool hasWindow()
{
    return runCommand(u"xdotool search --onlyvisible --name '^Wrenfold$'"_s).exitCode == 0;
}

} // namespace

TEST(CommandLine, SaysWhatIsWrongWhenThereIsNothingToReach)
{
    const std::pair<QString, int> rows[] = {
        {u"--help"_s, 0},
        {u"--version"_s, 0},
        {u"--toggle now"_s, 2},
        {u"--autostart"_s, 2},
        {u"--bogus"_s, 2},
        {u"--toggle"_s, 3},
        {u"--cancel"_s, 3},
        {u"--quit"_s, 3},
    };
    for (const auto &[options, status] : rows)
        EXPECT_EQ(statusOf(options), status) << qPrintable(options);
    EXPECT_EQ(statusOf(u"--check"_s, u"env -u DISPLAY "_s), 1);
    EXPECT_EQ(statusOf(u"--toggle"_s, u"DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent "_s), 1);
}

TEST(CommandLine, ReachesTheInstanceOfThisSessionAlone)
{
    const WrenfoldApplication application({}, {u"--background"_s});
    ASSERT_TRUE(WrenfoldApplication::waitForLog(u"Launch finished."_s));
    const std::pair<QString, QString> rows[] = {
        {u"--toggle"_s, u"Recording started."_s},
        {u"--cancel"_s, u"Recording cancelled."_s},
        {u"--toggle"_s, u"Recording started."_s},
        {u"--toggle"_s, u"Recording stopped."_s},
    };
    for (const auto &[option, line] : rows) {
        const auto before = WrenfoldApplication::log().filter(line).size();
        EXPECT_EQ(statusOf(option), 0);
        EXPECT_TRUE(WrenfoldApplication::waitForLog(line, before + 1)) << qPrintable(line);
    }
    const auto elsewhere = "dbus-run-session -- "_L1 + WrenfoldApplication::executable();
    EXPECT_EQ(runCommand(elsewhere + " --toggle"_L1).exitCode, 3);
    EXPECT_FALSE(hasWindow());
    EXPECT_EQ(statusOf(u"--show"_s), 0);
    EXPECT_TRUE(waitUntil(&hasWindow));

    // The best of a few: the machine is not ours alone.
    qint64 best = 1000;
    for (int i = 0; i < 10; ++i)
        best = std::min(best, millisecondsOf([] {
                            EXPECT_EQ(InstanceChannel::ask(InstanceCommand::CancelRecording),
                                      InstanceAnswer::Done);
                        }));
    EXPECT_LT(best, 10);

    EXPECT_EQ(statusOf(u"--quit"_s), 0);
    EXPECT_EQ(statusOf(u"--cancel"_s), 3);
    EXPECT_TRUE(waitUntil([&application] { return !application.isRunning(); }));
}

TEST(CommandLine, ShowStartsWhatDoesNotRun)
{
    const WrenfoldApplication application({}, {u"--show"_s});
    EXPECT_TRUE(waitUntil(&hasWindow));
}

TEST(CommandLine, TheSessionStartsWhatTheAutostartEntryNames)
{
    // A folder whose name an entry has to quote.
    const QDir folder(QDir::homePath() + u"/it's \"\\$5`"_s);
    ASSERT_TRUE(folder.mkpath(u"."_s));
    const auto program = folder.filePath(u"wrenfold"_s);
    ASSERT_TRUE(QFile::copy(WrenfoldApplication::executable(), program));
    const auto run = [&program](const QString &value) {
        QProcess process;
        process.start(program, {u"--autostart"_s, value});
        EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0);
        return process.readAll();
    };
    const auto entry = QDir::homePath() + "/.config/autostart/local.wrenfold.desktop"_L1;
    EXPECT_EQ(run(u"status"_s), "off\n");
    EXPECT_EQ(run(u"off"_s), "");
    EXPECT_EQ(run(u"on"_s), "");
    EXPECT_EQ(run(u"status"_s), "on\n");
    EXPECT_EQ(runCommand("gio launch "_L1 + entry).exitCode, 0);
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Launch finished."_s));
    EXPECT_EQ(statusOf(u"--quit"_s), 0);
    // As a desktop's own settings switch it off.
    runCommand("echo Hidden=true >>"_L1 + entry);
    EXPECT_EQ(run(u"status"_s), "off\n");
    EXPECT_EQ(run(u"off"_s), "");
    EXPECT_FALSE(QFile::exists(entry));
}

TEST(CommandLine, TimingsAreThoseOfBothGenerationsOfTheLog)
{
    const auto run = [] {
        const auto result = runCommand(WrenfoldApplication::executable() + " --timings"_L1);
        EXPECT_EQ(result.exitCode, 0);
        return QString::fromUtf8(result.output).simplified();
    };
    EXPECT_EQ(run(), u"Dictations in the log: 0, and failed ones: 0"_s);
    const auto log = QDir::homePath() + "/.wrenfold/logs/wrenfold"_L1;
    QDir().mkpath(QFileInfo(log).path());
    const auto write = [](const QString &path, int first, int last) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        for (int i = first; i <= last; ++i)
            file.write(
                "2026-01-01T00:00:00.000Z [INFO] [pid=1] Processing timing. audioSeconds=1.00 "
                "audioBytes=32044 asrMs="
                + QByteArray::number(i)
                + " polishMs=-1 pasteMs=2 totalMs=" + QByteArray::number(1000 + i)
                + "\n2026-01-01T00:00:00.000Z [INFO] [pid=1] Launch started. totalMs=1\n");
        file.write(
            "2026-01-01T00:00:00.000Z [INFO] [pid=1] Processing timing. asrMs=9999 totalMs=9999 "
            "failedStage=textPolishing\n"
            "2026-01-01T00:00:00.000Z [INFO] [pid=1] Paste delivered. fetchMs=7\n");
    };
    write(log + ".old.log"_L1, 1, 10);
    write(log + ".log"_L1, 11, 20);
    EXPECT_EQ(run(),
              u"Dictations in the log: 20, and failed ones: 2 median p95 Recognition 10 ms 19 ms "
              "Polishing - - Paste 2 ms 2 ms Whole 1010 ms 1019 ms Text fetched in 7 ms 7 ms"_s);
}

TEST(CommandLine, CheckNamesWhatADictationWouldFailAt)
{
    auto services = std::make_unique<ScriptedServices>();
    // What --check says, and with which status, besides a list of what is well.
    const auto expectLine = [](const QString &environment, const QString &line, int status) {
        const auto result =
            runCommand(environment + WrenfoldApplication::executable() + " --check --online"_L1);
        EXPECT_EQ(result.exitCode, status) << result.output.data();
        EXPECT_TRUE(QString::fromUtf8(result.output).simplified().contains(line))
            << qPrintable(line) << result.output.data();
    };
    services->configure();
    expectLine({}, u"ok Hotkey ⌘⇧Space is free."_s, 0);
    expectLine({}, u"ok Escape it can throw a recording away."_s, 0);
    expectLine({}, u"note Clipboard texts can be put there; nobody is known to keep"_s, 0);
    expectLine({}, u"Lone modifiers xinput2 Pressed keys xtest"_s, 0);
    expectLine(u"chmod 755 ~/.wrenfold; "_s, u".wrenfold is open to others (mode 0755)."_s, 0);
    expectLine(u"chmod 700 ~/.wrenfold; chmod 644 ~/.wrenfold/config.json; "_s,
               u"config.json is open to others (mode 0644)."_s,
               0);
    expectLine(
        u"PULSE_SERVER=unix:/nonexistent "_s, u"FAILS Microphone no sound server answers."_s, 1);
    {
        const auto running = WrenfoldApplication::launch();
        expectLine({}, u"ok Hotkey ⌘⇧Space starts a recording."_s, 0);
    }
    {
        // Another session's, on the same display.
        const auto lock = QDir::homePath();
        const auto other = WrenfoldApplication::launch(
            {u"DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent"_s, "XDG_RUNTIME_DIR="_L1 + lock});
        expectLine({}, u"FAILS Hotkey ⌘⇧Space is taken by another program"_s, 1);
    }
    services->configure(false);
    expectLine({}, u"FAILS Keys there are none."_s, 1);
    services->configure();
    services.reset();
    expectLine({}, u"FAILS Recognition No connection to"_s, 1);
    runCommand(u"echo '{' >~/.wrenfold/config.json"_s);
    expectLine({}, u"FAILS Settings"_s, 1);
    runCommand(u"pactl unload-module module-remap-source"_s);
    expectLine({}, u"FAILS Microphone the sound server has none."_s, 1);
}
