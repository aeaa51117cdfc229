// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AutoPaster.h"
#include "BackgroundTasks.h"
#include "Desktop.h"
#include "EventLoopMainQueue.h"
#include "TemporaryHome.h"
#include "WaitUntil.h"
#include "X11InputConnection.h"
#include "X11SyntheticKeyboard.h"

#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Editor
{
    QString program;
    QStringList arguments; // the file's path follows
    QString windowClass;
};

const Editor mousepad{u"mousepad"_s, {u"--disable-server"_s}, u"mousepad"_s};
const Editor featherpad{u"featherpad"_s, {u"--standalone"_s}, u"featherpad"_s};
// Takes what is typed as it comes, without the line editing of a terminal.
const Editor xterm{u"xterm"_s,
                   {u"-e"_s, u"sh"_s, u"-c"_s, u"stty -icanon -echo -isig; cat > \"$0\""_s},
                   u"xterm"_s};

class PasteDesktopTest : public testing::Test
{
protected:
    void open(const Editor &editor)
    {
        m_home.write(u"text.txt"_s, "");
        m_editor = m_desktop.start(editor.program,
                                   editor.arguments + QStringList{m_home.path(u"text.txt"_s)},
                                   editor.windowClass);
    }

    // Pastes as the application does, off the main thread.
    void paste(const QString &text)
    {
        bool isDone = false;
        BackgroundTasks tasks;
        tasks.start([&] {
            EXPECT_NO_THROW(AutoPaster(PasteConfig{}, m_keyboard, m_queue).paste(text));
            m_queue.post([&] { isDone = true; });
        });
        EXPECT_TRUE(waitUntil([&] { return isDone; }));
    }

    // Whether the editor holds exactly this text, when asked to save it.
    bool holds(const QByteArray &text)
    {
        const auto isSaved = [&] { return m_home.read(u"text.txt"_s) == text; };
        for (int i = 0; i < 20; ++i) {
            m_desktop.tap({Key::leftControl, Key::s});
            if (waitUntil(isSaved, std::chrono::milliseconds(500)))
                return true;
        }
        return false;
    }

    TemporaryHome m_home;
    Desktop m_desktop;
    EventLoopMainQueue m_queue;
    X11InputConnection m_input;
    X11SyntheticKeyboard m_keyboard{m_input};
    Application m_editor;
};

TEST_F(PasteDesktopTest, textArrivesInAnEditor)
{
    open(mousepad);
    paste(u"你好，世界 😀\nsecond\nthird\n"_s);
    EXPECT_TRUE(holds("你好，世界 😀\nsecond\nthird\n"));
}

} // namespace
