// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AutoPaster.h"
#include "ClipboardWriter.h"
#include "FakeSyntheticKeyboard.h"
#include "Outcome.h"
#include "VirtualMainQueue.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class AutoPasterTest : public testing::Test
{
protected:
    AutoPasterTest() { ClipboardWriter::copy(u"before"_s); }

    std::string paste(const QString &text)
    {
        return outcome([&] {
            AutoPaster(PasteConfig{}, m_keyboard, m_queue).paste(text);
            return m_clipboard->text();
        });
    }

    FakeSyntheticKeyboard m_keyboard;
    VirtualMainQueue m_queue;
    QClipboard *m_clipboard = QGuiApplication::clipboard();
};

TEST_F(AutoPasterTest, textIsOnTheClipboardWhenTheChordIsPosted)
{
    const auto chord = PasteChord::ControlV;
    for (const auto &text : {u"你好\r\n😀\n"_s, QString(u""_s), u" leading and trailing \n"_s}) {
        QString onClipboard;
        m_keyboard.onPost = [&] {
            onClipboard = m_clipboard->text();
            EXPECT_EQ(m_clipboard->mimeData()->formats(), QStringList{u"text/plain"_s});
        };
        EXPECT_EQ(paste(text), "= " + text.toStdString());
        EXPECT_EQ(onClipboard, text);
    }
    EXPECT_THAT(m_keyboard.posted, testing::ElementsAre(chord, chord, chord));
}

TEST_F(AutoPasterTest, failuresSayWhatIsMissingAndLeaveTheClipboardAsPromised)
{
    m_keyboard.trusted = false;
    EXPECT_EQ(paste(u"text"_s), "permissionMissing: 需要辅助功能权限");
    EXPECT_EQ(m_clipboard->text(), u"before"_s);
    m_keyboard.trusted = true;
    m_keyboard.canPost = false;
    EXPECT_EQ(paste(u"text"_s), "pasteFailed: 无法创建自动粘贴事件。");
    EXPECT_EQ(m_clipboard->text(), u"text"_s);
    EXPECT_THAT(m_keyboard.posted, testing::IsEmpty());
}

} // namespace
