// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Desktop.h"
#include "ForeignWindow.h"
#include "HistoryStore.h"
#include "Process.h"
#include "ScreenReader.h"
#include "ScriptedServices.h"
#include "TemporaryHome.h"
#include "TrayPanel.h"
#include "WaitUntil.h"
#include "WrenfoldApplication.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Plays a tone into the microphone, to its end.
void speak(double seconds)
{
    const auto command = u"sox -q -n -r 48000 -c 1 -b 16 -t raw - synth %1 sine 440 | "
                         "pacat --raw --rate=48000 --channels=1 --format=s16le"_s.arg(seconds);
    ASSERT_EQ(runCommand(command).exitCode, 0);
}

void signalSoundServer(int signal)
{
    ASSERT_EQ(::kill(qEnvironmentVariableIntValue("WRENFOLD_DESKTOP_SOUND_PID"), signal), 0);
}

// Tells the session, as a screen saver does, that the screen is locked or free again.
void signalScreenSaver(bool isActive)
{
    auto signal = QDBusMessage::createSignal(
        u"/ScreenSaver"_s, u"org.freedesktop.ScreenSaver"_s, u"ActiveChanged"_s);
    signal << isActive;
    ASSERT_TRUE(QDBusConnection::sessionBus().send(signal));
}

} // namespace

class Dictation : public testing::Test
{
protected:
    void launch(const ScriptedServices &used, const QStringList &environment = {})
    {
        used.configure();
        application.reset();
        application = WrenfoldApplication::launch(environment);
    }

    // Presses the hotkey until the log says so.
    void press(const QString &text, qsizetype times = 1)
    {
        ASSERT_TRUE(WrenfoldApplication::tapUntilLogged(desktop, Key::hotKey, text, times));
    }

    void startRecording(qsizetype times = 1) { press(u"Recording started."_s, times); }

    void finish()
    {
        press(u"Recording stopped."_s);
        ASSERT_TRUE(WrenfoldApplication::waitForLog(u"Processing timing."_s));
        EXPECT_TRUE(waitUntil([] { return recordings().isEmpty(); }));
    }

    // The history is written on a thread of its own.
    bool isKept() const
    {
        return waitUntil([this] {
            const auto items = HistoryStore().items();
            return !items.isEmpty() && items.constFirst().polished == polished;
        });
    }

    const QString polished = u"我们今天 ship 新版本 🚀\n下一步 review。"_s;

    Desktop desktop;
    ScriptedServices services{
        {u"--transcript"_s, u"嗯 我们今天 ship 新版本"_s, u"--polished"_s, polished}};
    std::unique_ptr<WrenfoldApplication> application;
};

TEST_F(Dictation, ArrivesInTheEditorThatHasTheFocus)
{
    launch(services);
    const auto file = QDir::home().filePath(u"text.txt"_s);
    const auto editor = desktop.start(u"mousepad"_s, {u"--disable-server"_s, file}, u"mousepad"_s);
    startRecording();
    speak(1.5);
    finish();
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Auto paste succeeded."_s));
    EXPECT_TRUE(desktop.isSaved(polished, file));

    EXPECT_TRUE(isKept());
    EXPECT_TRUE(desktop.keysDown().empty());
    EXPECT_TRUE(desktop.focusedClass().contains(u"mousepad"_s, Qt::CaseInsensitive));
    EXPECT_TRUE(waitUntil([this] { return services.requests().size() == 2; }));
    static const QRegularExpression seconds(u"audioSeconds=(\\d+\\.\\d\\d) "_s);
    const auto timing = WrenfoldApplication::log().filter(u"Processing timing."_s);
    EXPECT_GE(seconds.match(timing.constFirst()).captured(1).toDouble(), 1.5);
    const auto log = WrenfoldApplication::log().join(u'\n');
    EXPECT_FALSE(log.contains(u"新版本"_s));
    EXPECT_FALSE(log.contains(u"scripted-"_s));
}

TEST_F(Dictation, WorksWithoutSessionBusTrayAndCompositor)
{
    launch(services, {u"DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent"_s});
    const auto said = u"Duplicate launch requests cannot be received. No session bus."_s;
    EXPECT_EQ(WrenfoldApplication::log().filter(said).size(), 1);
    startRecording();
    finish();
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Auto paste succeeded."_s));
    EXPECT_EQ(application->end(SIGTERM), 0);
}

TEST_F(Dictation, ALockedScreenEndsItAndItsTextIsOnTheClipboard)
{
    const ScreenReader reader;
    launch(services, {u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"_s});
    ForeignWindow editor("editor");
    startRecording();
    signalScreenSaver(true);
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"failedStage=autoPaste"_s));
    EXPECT_TRUE(isKept());
    const auto onClipboard = runCommand(u"xclip -o -selection clipboard"_s).output;
    EXPECT_EQ(QString::fromUtf8(onClipboard), polished);
    signalScreenSaver(false);
    reader.await(u"已复制到剪贴板"_s);
    EXPECT_EQ(std::ranges::count(editor.presses, Key::v), 0);
}

TEST_F(Dictation, ALostSoundServerLeavesARecordingAndTheNextPressSaysSo)
{
    launch(services);
    startRecording();
    speak(0.5);
    signalSoundServer(SIGKILL);
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Recording interrupted. storageFull=false"_s));
    finish();
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Auto paste succeeded."_s));
    press(u"Showing error. error=录音没有启动成功。"_s);
    EXPECT_TRUE(recordings().isEmpty());
}

TEST_F(Dictation, ASoundServerThatStandsStillNeverHoldsUpTheApplication)
{
    launch(services);
    TrayPanel panel;
    ASSERT_TRUE(panel.hasIcon());
    // The slowest answer until the log has said this so many times.
    const auto slowestUntil = [&](const QString &text, qsizetype times) {
        qint64 slowest = 0;
        EXPECT_TRUE(waitUntil([&] {
            slowest = std::max(slowest, panel.millisecondsToAnswer());
            return WrenfoldApplication::log().filter(text).size() >= times;
        }));
        return slowest;
    };
    // What waits for the server does so every time; what this machine's load does, it does now and
    // then.
    qint64 finishing = 1000;
    qint64 starting = 1000;
    qsizetype rounds = 0;
    while (rounds < 8 && std::max(finishing, starting) >= 50) {
        startRecording(++rounds);
        signalSoundServer(SIGSTOP);
        desktop.tap(Key::hotKey);
        finishing = std::min(finishing, slowestUntil(u"Processing timing."_s, rounds));
        EXPECT_TRUE(panel.awaitToolTip(u"：听，"_s));
        desktop.tap(Key::hotKey);
        starting =
            std::min(starting, slowestUntil(u"Showing error. error=录音没有启动成功。"_s, rounds));
        signalSoundServer(SIGCONT);
    }
    EXPECT_LT(finishing, 50);
    EXPECT_LT(starting, 50);
    startRecording(rounds + 1);
}

TEST_F(Dictation, AServiceThatFailsLeavesNothingTypedAndTheNextPressReady)
{
    const std::tuple<QStringList, QString, qsizetype> rows[] = {
        {{u"--recognition-status"_s, u"503"_s}, u"speechRecognition"_s, 1},
        {{u"--polishing-status"_s, u"402"_s}, u"textPolishing"_s, 2}};
    for (const auto &[options, stage, requests] : rows) {
        ScriptedServices failing(options);
        launch(failing);
        startRecording();
        finish();
        const auto shown = u"Showing processing failure. stage="_s + stage;
        EXPECT_TRUE(WrenfoldApplication::waitForLog(shown));
        EXPECT_TRUE(
            waitUntil([&, &expected = requests] { return failing.requests().size() == expected; }));
        startRecording(2);
    }
    EXPECT_TRUE(HistoryStore().items().isEmpty());
}
