// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Process.h"
#include "SelectionOwner.h"
#include "WaitUntil.h"
#include "X11ClipboardHandover.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Is asked to save the clipboard, and answers or stays silent.
class ScriptedManager final
{
public:
    ScriptedManager() { ownSelection(m_connection, "CLIPBOARD_MANAGER"); }

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
        const auto *bytes = reinterpret_cast<const char *>(&answer);
        xcb_send_event(m_connection.get(), 0, request->requestor, XCB_EVENT_MASK_NO_EVENT, bytes);
        xcb_flush(m_connection.get());
    }

    X11Connection m_connection{[this](const void *message) { handle(message); }};
};

const auto handOver = [] { handOverClipboard(); };

} // namespace

TEST(ClipboardHandover, leavesTheTextWithTheClipboardManager)
{
    BackgroundProcess manager;
    manager.start(u"xfce4-clipman"_s, QStringList());
    auto *server = X11Selections::applicationConnection();
    const auto selection = X11Selections::atom(server, "CLIPBOARD_MANAGER");
    ASSERT_TRUE(waitUntil([&] { return X11Selections::owner(server, selection) != 0; }));
    auto *clipboard = QGuiApplication::clipboard();
    clipboard->setText(u"整理好的文字。🙂"_s);
    clipboard->setText(u"整理好的文字。🙂"_s, QClipboard::Selection);
    EXPECT_LT(millisecondsOf(handOver), 600);
    EXPECT_FALSE(clipboard->ownsClipboard()) << "or Qt would wait for it";
    EXPECT_FALSE(clipboard->ownsSelection());
    EXPECT_TRUE(waitUntil([] {
        return runCommand(u"xclip -o -selection clipboard"_s).output == "整理好的文字。🙂";
    }));
}

TEST(ClipboardHandover, waitsForTheManagersAnswerAndNoLongerThanItsLimit)
{
    auto *clipboard = QGuiApplication::clipboard();
    clipboard->setText(u"文字"_s);
    EXPECT_LT(millisecondsOf(handOver), 100);
    EXPECT_TRUE(clipboard->ownsClipboard()) << "nobody is there to take it";
    ScriptedManager manager;
    for (const bool answers : {true, false}) {
        manager.answers = answers;
        clipboard->setText(u"文字"_s);
        const auto took = millisecondsOf(handOver);
        EXPECT_TRUE(answers ? took < 150 : took >= 290 && took < 600) << took;
        EXPECT_FALSE(clipboard->ownsClipboard());
        EXPECT_LT(millisecondsOf(handOver), 100);
    }
}
