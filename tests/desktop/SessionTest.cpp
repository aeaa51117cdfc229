// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Process.h"
#include "ShowWindowChannel.h"
#include "WaitUntil.h"
#include "X11ClipboardHandover.h"
#include "X11Selections.h"
#include "XcbConnection.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>

#include <gtest/gtest.h>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

quint32 ownerOf(const QByteArray &selection)
{
    auto *connection = X11Selections::applicationConnection();
    return X11Selections::owner(connection, X11Selections::atom(connection, selection));
}

// Is asked to save the clipboard, and answers or stays silent.
class ScriptedManager final
{
public:
    ScriptedManager()
    {
        auto *server = m_connection.get();
        const auto window = xcb_generate_id(server);
        xcb_create_window(server, 0, window, m_connection.root(), 0, 0, 9, 9, 0, 0, 0, 0, nullptr);
        const auto selection = X11Selections::atom(server, "CLIPBOARD_MANAGER");
        xcb_set_selection_owner(server, window, selection, XCB_CURRENT_TIME);
        xcb_flush(server);
    }

    bool answers = true;

private:
    void handle(const void *message)
    {
        const auto *request = static_cast<const xcb_selection_request_event_t *>(message);
        if (request->response_type != XCB_SELECTION_REQUEST || !answers)
            return;
        xcb_selection_notify_event_t answer = {};
        answer.response_type = XCB_SELECTION_NOTIFY;
        answer.requestor = request->requestor;
        answer.selection = request->selection;
        answer.target = request->target;
        xcb_send_event(m_connection.get(),
                       0,
                       request->requestor,
                       XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char *>(&answer));
        xcb_flush(m_connection.get());
    }

    XcbConnection m_connection{[this](const void *message) { handle(message); }};
};

// Hands over and returns how long it took, in milliseconds.
qint64 handOver()
{
    QElapsedTimer timer;
    timer.start();
    handOverClipboard();
    return timer.elapsed();
}

} // namespace

TEST(ShowWindowChannel, reachesTheInstanceThatObserves)
{
    ShowWindowChannel channel;
    int requests = 0;
    ASSERT_TRUE(channel.observe([&requests] { ++requests; }));
    EXPECT_TRUE(ShowWindowChannel().post());
    EXPECT_TRUE(waitUntil([&requests] { return requests == 1; }));
    const QStringList signal{u"--session"_s,
                             u"--type=signal"_s,
                             u"/local/wrenfold"_s,
                             u"local.wrenfold.showMainWindow"_s};
    runProcess(u"dbus-send"_s, signal);
    EXPECT_TRUE(waitUntil([&requests] { return requests == 2; }));
    channel.stop();
    runProcess(u"dbus-send"_s, signal);
    EXPECT_TRUE(ShowWindowChannel().post());
    EXPECT_EQ(requests, 2);
}

TEST(ClipboardHandover, leavesTheTextWithTheClipboardManager)
{
    QProcess manager;
    manager.start(u"xfce4-clipman"_s, QStringList());
    ASSERT_TRUE(waitUntil([] { return ownerOf("CLIPBOARD_MANAGER") != 0; }));
    auto *clipboard = QGuiApplication::clipboard();
    clipboard->setText(u"整理好的文字。🙂"_s);
    clipboard->setText(u"整理好的文字。🙂"_s, QClipboard::Selection);
    EXPECT_LT(handOver(), 600);
    EXPECT_FALSE(clipboard->ownsClipboard()) << "or Qt would wait for it";
    EXPECT_FALSE(clipboard->ownsSelection());
    EXPECT_TRUE(waitUntil([] {
        return runProcess(u"xclip"_s, {u"-o"_s, u"-selection"_s, u"clipboard"_s}).output
            == u"整理好的文字。🙂"_s.toUtf8();
    }));
    manager.kill();
    manager.waitForFinished();
}

TEST(ClipboardHandover, waitsForTheManagersAnswerAndNoLongerThanItsLimit)
{
    auto *clipboard = QGuiApplication::clipboard();
    clipboard->setText(u"文字"_s);
    EXPECT_LT(handOver(), 100);
    EXPECT_TRUE(clipboard->ownsClipboard()) << "nobody is there to take it";
    ScriptedManager manager;
    ASSERT_TRUE(waitUntil([] { return ownerOf("CLIPBOARD_MANAGER") != 0; }));
    for (const bool answers : {true, false}) {
        manager.answers = answers;
        clipboard->setText(u"文字"_s);
        const auto took = handOver();
        EXPECT_TRUE(answers ? took < 150 : took >= 290 && took < 600) << took;
        EXPECT_FALSE(clipboard->ownsClipboard());
        EXPECT_LT(handOver(), 100);
    }
}
