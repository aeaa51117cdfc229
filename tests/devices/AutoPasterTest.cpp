// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AutoPaster.h"
#include "BackgroundTasks.h"
#include "FakeClipboard.h"
#include "FakeSyntheticKeyboard.h"
#include "Outcome.h"
#include "VirtualMainQueue.h"
#include "WaitUntil.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class AutoPasterTest : public testing::Test
{
protected:
    void paste(const QString &text)
    {
        AutoPaster(PasteConfig{}, {keyboard, clipboard, turns, queue})
            .paste(text, [this, text](auto fetchedAfter) {
                results << text + (fetchedAfter ? u" fetched"_s : u" not fetched"_s);
            });
    }

    PasteTurns turns;
    FakeSyntheticKeyboard keyboard;
    FakeClipboard clipboard;
    VirtualMainQueue queue;
    QStringList results;
};

TEST_F(AutoPasterTest, saysWhatIsMissingAndLeavesTheClipboardAsPromised)
{
    const auto text = u" 你好\r\n😀\n "_s;
    // Whether we may post and can, refused offers, what comes of it and what the clipboard holds.
    const std::tuple<bool, bool, int, std::string, QString> rows[] = {
        {false, true, 0, "permissionMissing: 需要辅助功能权限", u"before"_s},
        {true, true, 10, "pasteFailed: 写入系统剪贴板失败。", u"before"_s},
        {true, false, 0, "pasteFailed: 无法创建自动粘贴事件。", text},
        {true, true, 9, "= ", text},
    };
    for (const auto &[isTrusted, canPost, refusals, expected, content] : rows) {
        keyboard.trusted = isTrusted;
        keyboard.canPost = canPost;
        clipboard.refusals = refusals;
        EXPECT_EQ(outcome([&] {
                      paste(text);
                      return QString();
                  }),
                  expected);
        EXPECT_EQ(clipboard.text, content);
    }
    EXPECT_EQ(keyboard.posted, 1);
}

TEST_F(AutoPasterTest, pastesGoOneAtATimeAndAreGivenASecond)
{
    BackgroundTasks tasks;
    for (const auto &text : {u"A"_s, u"B"_s}) {
        tasks.start([this, text] { paste(text); });
        ASSERT_TRUE(queue.runUntil([&] { return keyboard.posted > 0; }));
    }
    queue.advance(999ms);
    EXPECT_EQ(clipboard.text, u"A"_s);
    EXPECT_TRUE(results.isEmpty());
    queue.advance(1ms);
    ASSERT_TRUE(queue.runUntil([&] { return keyboard.posted == 2; }));
    EXPECT_EQ(clipboard.text, u"B"_s);
    clipboard.fetch();
    clipboard.fetch();
    queue.advance(5s);
    EXPECT_EQ(results, (QStringList{u"A not fetched"_s, u"B fetched"_s}));
    tasks.waitForDone();
    // An open menu is waited for, two seconds.
    keyboard.isHeld = true;
    EXPECT_GE(millisecondsOf([this] { EXPECT_ANY_THROW(paste(u"Z"_s)); }), 2000);
    EXPECT_EQ(clipboard.text, u"B"_s);
    EXPECT_EQ(keyboard.posted, 2);
    // The turn of a paste that failed, or was given up with the queue, is over too.
    keyboard.isHeld = false;
    keyboard.canPost = false;
    EXPECT_ANY_THROW(paste(u"C"_s));
    keyboard.canPost = true;
    paste(u"D"_s);
    queue.close();
    paste(u"E"_s);
}

} // namespace
