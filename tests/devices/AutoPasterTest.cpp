// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AutoPaster.h"
#include "ClipboardWriter.h"
#include "FakeSyntheticKeyboard.h"
#include "HushwireError.h"
#include "VirtualMainQueue.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Kind = HushwireError::Kind;

namespace {

class AutoPasterTest : public testing::Test
{
protected:
    AutoPasterTest() { ClipboardWriter::copy(u"before"_s); }

    // The message and kind of what the paste throws.
    std::pair<QString, std::optional<Kind>> paste(const QString &text)
    {
        try {
            AutoPaster(PasteConfig{}, m_keyboard, m_queue).paste(text);
        } catch (const HushwireError &error) {
            return {error.localizedDescription(), error.kind()};
        }
        return {};
    }

    FakeSyntheticKeyboard m_keyboard;
    VirtualMainQueue m_queue;
    QClipboard *m_clipboard = QGuiApplication::clipboard();
};

TEST_F(AutoPasterTest, textIsOnTheClipboardWhenTheChordIsPosted)
{
    for (const auto &text : {u"你好\r\n😀\n"_s, QString(u""_s), u" leading and trailing \n"_s}) {
        QString onClipboard;
        QStringList formats;
        m_keyboard.onPost = [&] {
            onClipboard = m_clipboard->text();
            formats = m_clipboard->mimeData()->formats();
        };
        EXPECT_EQ(paste(text).first, QString());
        EXPECT_EQ(onClipboard, text);
        EXPECT_EQ(formats, QStringList{u"text/plain"_s});
    }
    EXPECT_THAT(m_keyboard.posted, testing::Each(PasteChord::ControlV));
    EXPECT_EQ(m_keyboard.posted.size(), 3U);
}

TEST_F(AutoPasterTest, failuresSayWhatIsMissingAndLeaveTheClipboardAsPromised)
{
    m_keyboard.trusted = false;
    EXPECT_EQ(paste(u"text"_s),
              std::pair(u"需要辅助功能权限"_s, std::optional(Kind::PermissionMissing)));
    EXPECT_EQ(m_clipboard->text(), u"before"_s);
    m_keyboard.trusted = true;
    m_keyboard.canPost = false;
    EXPECT_EQ(paste(u"text"_s),
              std::pair(u"无法创建自动粘贴事件。"_s, std::optional(Kind::PasteFailed)));
    EXPECT_EQ(m_clipboard->text(), u"text"_s);
    EXPECT_THAT(m_keyboard.posted, testing::IsEmpty());
}

} // namespace
