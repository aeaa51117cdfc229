// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AutoPaster.h"
#include "FakeSyntheticKeyboard.h"
#include "Outcome.h"
#include "VirtualMainQueue.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(AutoPaster, saysWhatIsMissingAndLeavesTheClipboardAsPromised)
{
    FakeSyntheticKeyboard keyboard;
    VirtualMainQueue queue;
    auto *clipboard = QGuiApplication::clipboard();
    clipboard->setText(u"before"_s);
    const auto text = u" 你好\r\n😀\n "_s;
    // Whether we may post and can, what comes of it, and what the clipboard holds then.
    const std::tuple<bool, bool, std::string, QString> rows[] = {
        {false, true, "permissionMissing: 需要辅助功能权限", u"before"_s},
        {true, false, "pasteFailed: 无法创建自动粘贴事件。", text},
        {true, true, "= ", text},
    };
    for (const auto &[isTrusted, canPost, expected, content] : rows) {
        keyboard.trusted = isTrusted;
        keyboard.canPost = canPost;
        EXPECT_EQ(outcome([&] {
                      AutoPaster(PasteConfig{}, keyboard, queue).paste(text);
                      return QString();
                  }),
                  expected);
        EXPECT_EQ(clipboard->text(), content);
        EXPECT_EQ(clipboard->mimeData()->formats(), QStringList{u"text/plain"_s});
    }
    EXPECT_EQ(keyboard.posted, 1);
}
