// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "HistoryStore.h"
#include "Process.h"
#include "ScriptedServices.h"
#include "SessionKeyboard.h"
#include "WaitUntil.h"
#include "WrenfoldApplication.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// A terminal that keeps what it is given, a line at a time, and what tells that Escape is ours now.
struct Session
{
    QString terminal;
    QString escapeIsBound;
    QString ways; // as the log tells them
    QString closeWindow; // the application's own; fails as long as there is none
    QString lock;
};
const Session sway{
    u"foot -- sh -c \"cat > %1\""_s,
    u"test 1 = $(wc -l < $XDG_RUNTIME_DIR/local.wrenfold.sway-bindings)"_s,
    u"Wayland. hotkey=sway escape=sway modifiers=sway keys=virtual-keyboard "
    "clipboard=data-control overlay=layer-shell application=sway monitor=compositor"_s,
    u"swaymsg '[app_id=local.wrenfold] kill'"_s,
    u"swaylock"_s};
const Session kde{u"konsole -e sh -c \"cat > %1\""_s,
                  u"gdbus call --session --dest org.kde.kglobalaccel --object-path /kglobalaccel "
                  "--method org.kde.KGlobalAccel.action 16777216 | grep -q wrenfold"_s,
                  u"Wayland. hotkey=kglobalaccel escape=kglobalaccel modifiers=kglobalaccel "
                  "keys=fake-input clipboard=data-control overlay=layer-shell "
                  "application=plasma-window-management monitor=compositor"_s,
                  QStringLiteral(WRENFOLD_KWIN_CLOSE " Wrenfold"),
                  u"gdbus call --session --dest org.freedesktop.ScreenSaver --object-path "
                  "/ScreenSaver --method org.freedesktop.ScreenSaver.Lock"_s};

const std::vector<int> hotKey{KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_SPACE};
const QString spoken = u"我们今天 ship 新版本 🚀\n下一步 review。"_s;

// A program that writes what it is given to a file when the keys are pressed.
struct Editor
{
    QString command; // %1 is the file
    std::vector<int> save;
    QString before; // what the file holds once the keys have reached it
};

} // namespace

class WaylandDictation : public testing::Test
{
protected:
    // Leaves the editor with the focus.
    void open(const Editor &editor)
    {
        QFile::remove(file);
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.startCommand(editor.command.arg(file));
        ASSERT_TRUE(taps(editor.save,
                         [&] { return QFile::exists(file) && saved().startsWith(editor.before); }));
    }

    // Taps the keys until the condition holds: a key too early is rightly ignored.
    bool taps(const std::vector<int> &keys, const std::function<bool()> &condition)
    {
        return waitUntil(
            [&] {
                keyboard.tap(keys);
                return waitUntil(condition, 1s);
            },
            20s);
    }

    // Sets the hotkey and starts the application anew.
    void launch(const HotKeyConfig &chosen = {})
    {
        services.configure();
        auto config = AppConfig::loadOrCreateTemplate().config;
        config.hotKey = chosen;
        AppConfig::save(config);
        application.reset();
        application = WrenfoldApplication::launch();
        // It takes the focus when it comes.
        EXPECT_TRUE(waitUntil([this] { return runCommand(session.closeWindow).exitCode == 0; }));
    }

    void press(const QString &text, qsizetype times = 1, const std::vector<int> &keys = hotKey)
    {
        ASSERT_TRUE(taps(keys, [&] { return WrenfoldApplication::waitForLog(text, times, 0s); }));
    }

    void dictate(qsizetype times = 1)
    {
        press(u"Recording started."_s, times);
        press(u"Recording stopped."_s, times);
        EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Paste delivered."_s, times));
    }

    static QString clipboard()
    {
        return QString::fromUtf8(runCommand(u"timeout 5 wl-paste --no-newline"_s).output);
    }

    QString saved() const
    {
        QFile content(file);
        return content.open(QIODevice::ReadOnly) ? QString::fromUtf8(content.readAll()) : u"none"_s;
    }

    // Whether Escape comes to the terminal that has the focus, as a line of its own.
    [[nodiscard]] bool escapeReachesTheTerminal()
    {
        const auto before = saved().size();
        return waitUntil(
            [&] {
                keyboard.tap({KEY_ESC});
                keyboard.tap({KEY_ENTER});
                return waitUntil([&] { return saved().mid(before).contains(u'\x1b'); }, 200ms);
            },
            2s);
    }

    const Session &session = qEnvironmentVariableIsSet("SWAYSOCK") ? sway : kde;
    const QString file = QDir::home().filePath(u"text.txt"_s);
    SessionKeyboard keyboard;
    ScriptedServices services{{u"--transcript"_s, u"嗯"_s, u"--polished"_s, spoken}};
    std::unique_ptr<WrenfoldApplication> application;
    BackgroundProcess process;
};

TEST_F(WaylandDictation, ArrivesInEditorsAndTerminalsThatHaveTheFocus)
{
    launch();
    EXPECT_TRUE(WrenfoldApplication::waitForLog("Desktop: "_L1 + session.ways));
    const Editor editors[] = {{u"mousepad --disable-server %1"_s, {KEY_LEFTCTRL, KEY_S}, {}},
                              {session.terminal, {KEY_ENTER}, u"\n"_s}};
    for (qsizetype times = 1; const auto &editor : editors) {
        open(editor);
        dictate(times++);
        EXPECT_TRUE(taps(editor.save, [&] { return saved().contains(spoken); }))
            << saved().toStdString();
        process.kill();
        process.waitForFinished();
    }
    EXPECT_EQ(HistoryStore().items().constFirst().polished, spoken);
    EXPECT_EQ(clipboard(), spoken);
}

TEST_F(WaylandDictation, EscapeIsOursOnlyWhileRecordingAndNotAfterACrash)
{
    launch();
    open({session.terminal, {KEY_ENTER}, u"\n"_s});
    EXPECT_TRUE(escapeReachesTheTerminal());
    press(u"Recording started."_s);
    press(u"Recording cancelled."_s, 1, {KEY_ESC});
    EXPECT_TRUE(escapeReachesTheTerminal());
    press(u"Recording started."_s, 2);
    EXPECT_TRUE(waitUntil([this] { return runCommand(session.escapeIsBound).exitCode == 0; }));
    EXPECT_EQ(application->end(SIGKILL), -1);
    EXPECT_FALSE(escapeReachesTheTerminal());
    launch();
    EXPECT_TRUE(escapeReachesTheTerminal());
    press(u"Recording started."_s);
    EXPECT_EQ(application->end(SIGTERM), 0);
    EXPECT_TRUE(escapeReachesTheTerminal());
}

TEST_F(WaylandDictation, ArrivesWhileAModifierIsHeld)
{
    launch({101, 0, u"F9"_s});
    open({session.terminal, {KEY_ENTER}, u"\n"_s});
    qsizetype times = 0;
    for (const int held : {KEY_LEFTSHIFT, KEY_LEFTMETA, KEY_LEFTALT, KEY_LEFTCTRL}) {
        press(u"Recording started."_s, ++times, {KEY_F9});
        keyboard.move({KEY_F9, -KEY_F9, held});
        EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Paste delivered."_s, times));
        EXPECT_TRUE(waitUntil([&] { return saved().count(spoken.section(u'\n', 0, 0)) == times; }))
            << held << ' ' << saved().toStdString();
        keyboard.move({-held});
    }
}

TEST_F(WaylandDictation, AModifierKeyOnItsOwnIsTakenOnItsSideAlone)
{
    if (&session != &sway)
        GTEST_SKIP() << "no sides here";
    launch({61, 0x800, u"右⌥"_s});
    keyboard.tap({KEY_LEFTALT});
    press(u"Recording started."_s, 1, {KEY_RIGHTALT});
    keyboard.tap({KEY_LEFTALT});
    EXPECT_FALSE(WrenfoldApplication::waitForLog(u"Recording stopped."_s, 1, 300ms));
    press(u"Recording stopped."_s, 1, {KEY_RIGHTALT});
}

TEST_F(WaylandDictation, BehindALockNothingIsTypedAndTheTextIsOnTheClipboard)
{
    launch();
    press(u"Recording started."_s);
    BackgroundProcess locker;
    locker.startCommand(session.lock);
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Session lock changed. locked=true"_s));
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Processing timing."_s));
    EXPECT_TRUE(WrenfoldApplication::log().filter(u"Auto paste succeeded."_s).isEmpty());
    if (&session == &sway) { // KWin wants a password
        locker.kill();
        EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Session lock changed. locked=false"_s));
    }
    EXPECT_EQ(clipboard(), spoken);
}

TEST_F(WaylandDictation, EndsWithItsFarewellWhenTheCompositorDies)
{
    launch();
    ::kill(qEnvironmentVariableIntValue("WRENFOLD_DESKTOP_COMPOSITOR_PID"), SIGKILL);
    EXPECT_EQ(application->waitForExit(), 1);
    EXPECT_TRUE(WrenfoldApplication::log().constLast().contains("will terminate"_L1));
}
