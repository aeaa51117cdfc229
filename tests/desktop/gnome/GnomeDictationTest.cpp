// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
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

struct HotKey
{
    HotKeyConfig config;
    std::vector<int> keys;
};

const HotKey combination{{2, 0x1800, u"⌃⌥D"_s}, {KEY_LEFTCTRL, KEY_LEFTALT, KEY_D}};
const HotKey loneModifier{{61, 0x800, u"右⌥"_s}, {KEY_RIGHTALT}};
const QString polished = u"我们今天 ship 新版本 🚀\n下一步 review。"_s;
const QString mediaKeys = u"org.gnome.settings-daemon.plugins.media-keys"_s;

// A program that writes what it is given to a file when the keys are pressed.
struct Editor
{
    QString command; // %1 is the file
    std::vector<int> save;
};

const Editor terminal{u"gnome-terminal --wait -- sh -c \"cat > %1\""_s, {KEY_ENTER}};

// Of our own shortcut by this name.
QString boundTo(const QString &name)
{
    const auto path = u"/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/%1/"_s;
    const auto entry = u"%1.custom-keybinding:%2"_s.arg(mediaKeys, path.arg(name));
    return QString::fromUtf8(runCommand(u"gsettings get %1 binding"_s.arg(entry)).output).trimmed();
}

QString shortcutPaths()
{
    const auto question = u"gsettings get %1 custom-keybindings"_s.arg(mediaKeys);
    return QString::fromUtf8(runCommand(question).output).trimmed();
}

} // namespace

class GnomeDictation : public testing::Test
{
protected:
    void launch(const HotKey &used)
    {
        hotKey = used;
        services.configure();
        auto config = AppConfig::loadOrCreateTemplate().config;
        config.hotKey = hotKey.config;
        AppConfig::save(config);
        application = WrenfoldApplication::launch();
    }

    // Leaves the editor with the focus.
    void open(const Editor &editor)
    {
        QFile::remove(file);
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.startCommand(editor.command.arg(file));
        ASSERT_TRUE(waitUntil(
            [&] {
                keyboard.tap({KEY_X});
                keyboard.tap(editor.save);
                return waitUntil([this] { return saved().contains(u'x'); }, 1s);
            },
            20s))
            << editor.command.toStdString();
    }

    bool isSaved(const Editor &editor, const QString &text)
    {
        return taps(editor.save, [&] { return saved().contains(text); });
    }

    // Taps the keys until the condition holds: a key too early is rightly ignored.
    bool taps(const std::vector<int> &keys, const std::function<bool()> &condition)
    {
        return waitUntil(
            [&] {
                keyboard.tap(keys);
                return waitUntil(condition, 3s);
            },
            10s);
    }

    void press(const QString &text, qsizetype times = 1)
    {
        ASSERT_TRUE(
            taps(hotKey.keys, [&] { return WrenfoldApplication::waitForLog(text, times, 0s); }));
    }

    QString saved() const
    {
        QFile content(file);
        return content.open(QIODevice::ReadOnly) ? QString::fromUtf8(content.readAll()) : QString();
    }

    const QString file = QDir::home().filePath(u"text.txt"_s);
    HotKey hotKey;
    SessionKeyboard keyboard;
    ScriptedServices services{{u"--transcript"_s, u"嗯"_s, u"--polished"_s, polished}};
    std::unique_ptr<WrenfoldApplication> application;
    BackgroundProcess process;
};

TEST_F(GnomeDictation, ArrivesInProgramsOfWaylandAndOfX)
{
    launch(combination);
    const Editor editors[] = {
        {u"mousepad --disable-server %1"_s, {KEY_LEFTCTRL, KEY_S}},
        {u"gnome-text-editor --standalone %1"_s, {KEY_LEFTCTRL, KEY_S}},
        {u"env GDK_BACKEND=x11 mousepad --disable-server %1"_s, {KEY_LEFTCTRL, KEY_S}},
        terminal};
    for (qsizetype times = 1; const auto &editor : editors) {
        open(editor);
        press(u"Recording started."_s, times);
        press(u"Recording stopped."_s, times);
        EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Paste delivered."_s, times++));
        EXPECT_TRUE(isSaved(editor, polished))
            << editor.command.toStdString() << ": " << saved().toStdString();
        process.kill();
        process.waitForFinished();
    }
}

TEST_F(GnomeDictation, EscapeCancelsAndIsTheTerminalsAgainAfterwards)
{
    launch(combination);
    open(terminal);
    press(u"Recording started."_s);
    EXPECT_TRUE(taps({KEY_ESC}, [] {
        return WrenfoldApplication::waitForLog(u"Recording cancelled."_s, 1, 0s);
    }));
    EXPECT_TRUE(waitUntil([] { return boundTo(u"wrenfold-cancel"_s) == u"''"_s; }));
    EXPECT_TRUE(taps({KEY_ESC, KEY_ENTER}, [this] { return saved().contains(u'\x1b'); }));
    EXPECT_EQ(WrenfoldApplication::log().filter(u"Recording cancelled."_s).size(), 1);
}

TEST_F(GnomeDictation, AHeldHotKeyIsOnePress)
{
    // The repeats of the second one may keep the machine busy for a while.
    for (const auto &held : {loneModifier, combination}) {
        launch(held);
        EXPECT_TRUE(waitUntil([&] {
            keyboard.move(held.keys);
            const bool isHeard = WrenfoldApplication::waitForLog(u"Recording started."_s, 1, 2s);
            EXPECT_FALSE(isHeard
                         && WrenfoldApplication::waitForLog(u"Recording stopped."_s, 1, 2s));
            for (const int key : held.keys)
                keyboard.move({-key});
            return isHeard;
        }));
        application.reset();
    }
}

TEST_F(GnomeDictation, LeavesTheUsersShortcutsAsTheyWere)
{
    const auto users = u"['/org/example/first/', '/org/example/second/']"_s;
    runCommand(u"gsettings set %1 custom-keybindings \"%2\""_s.arg(mediaKeys, users));
    launch(combination);
    EXPECT_TRUE(waitUntil([&users] { return shortcutPaths() != users; }));
    EXPECT_TRUE(shortcutPaths().startsWith(users.chopped(1)));
    EXPECT_EQ(application->end(SIGTERM), 0);
    EXPECT_EQ(shortcutPaths(), users);
    EXPECT_EQ(boundTo(u"wrenfold-toggle"_s), u"''"_s);
}

TEST_F(GnomeDictation, ACrashLeavesEscapeHealedByItsFirstPress)
{
    launch(combination);
    press(u"Recording started."_s);
    EXPECT_TRUE(waitUntil([] { return boundTo(u"wrenfold-cancel"_s) == u"'Escape'"_s; }));
    EXPECT_EQ(application->end(SIGKILL), -1);
    EXPECT_TRUE(taps({KEY_ESC}, [] { return boundTo(u"wrenfold-cancel"_s) == u"''"_s; }));
    EXPECT_EQ(shortcutPaths(), u"@as []"_s);
    launch(combination);
    press(u"Recording started."_s);
}
