// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HistoryStore.h"
#include "Process.h"
#include "ScriptedServices.h"
#include "SessionKeyboard.h"
#include "WaitUntil.h"
#include "WrenfoldApplication.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

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
        ASSERT_TRUE(taps(editor.save, [&] { return saved() == editor.before; }));
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

    void press(const QString &text, qsizetype times = 1)
    {
        ASSERT_TRUE(taps(hotKey, [&] { return WrenfoldApplication::waitForLog(text, times, 0s); }));
    }

    void dictate(qsizetype times = 1)
    {
        press(u"Recording started."_s, times);
        press(u"Recording stopped."_s, times);
        EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Paste delivered."_s, times));
    }

    QString saved() const
    {
        QFile content(file);
        return content.open(QIODevice::ReadOnly) ? QString::fromUtf8(content.readAll()) : u"none"_s;
    }

    const QString file = QDir::home().filePath(u"text.txt"_s);
    SessionKeyboard keyboard;
    ScriptedServices services{{u"--transcript"_s, u"嗯"_s, u"--polished"_s, spoken}};
    std::unique_ptr<WrenfoldApplication> application;
    BackgroundProcess process;
};

TEST_F(WaylandDictation, ArrivesInEditorsAndTerminalsThatHaveTheFocus)
{
    services.configure();
    application = WrenfoldApplication::launch();
    const Editor editors[] = {{u"mousepad --disable-server %1"_s, {KEY_LEFTCTRL, KEY_S}, {}},
                              {u"foot -- sh -c \"cat > %1\""_s, {KEY_ENTER}, u"\n"_s}};
    for (qsizetype times = 1; const auto &editor : editors) {
        open(editor);
        dictate(times++);
        EXPECT_TRUE(taps(editor.save, [&] { return saved().contains(spoken); }))
            << saved().toStdString();
        process.kill();
        process.waitForFinished();
    }
    EXPECT_EQ(HistoryStore().items().constFirst().polished, spoken);
    const auto paste = u"timeout 5 wl-paste --no-newline"_s;
    EXPECT_EQ(QString::fromUtf8(runCommand(paste).output), spoken);
}
