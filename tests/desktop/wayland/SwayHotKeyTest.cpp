// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Process.h"
#include "SessionKeyboard.h"
#include "SwayHotKeyRegistrar.h"
#include "WaitUntil.h"

#include <QFile>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;

class SwayHotKeys : public testing::Test
{
protected:
    SwayHotKeys()
    {
        registrar.setHandler([this](HotKeyId) { ++presses; });
    }

    [[nodiscard]] bool isHeard(const std::vector<int> &keys)
    {
        const int before = presses;
        return waitUntil(
            [&] {
                keyboard.tap(keys);
                return waitUntil([&] { return presses > before; }, std::chrono::milliseconds(200));
            },
            std::chrono::seconds(2));
    }

    // Adds to sway's configuration and has it read again.
    static void configure(const QByteArray &lines)
    {
        QFile file(qEnvironmentVariable("HOME") + "/../sway.config"_L1);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(lines);
        file.close();
        ASSERT_EQ(runCommand(u"swaymsg reload"_s).exitCode, 0);
    }

    int presses = 0;
    SessionKeyboard keyboard;
    SwayHotKeyRegistrar registrar{[](quint32) { return QString(); }};
};

TEST_F(SwayHotKeys, AHeldKeyIsOnePressAndAReloadLosesNothing)
{
    ASSERT_EQ(registrar.registerHotKey(HotKeyId::Main, 40, 0x1800), 0); // ⌃⌥K
    keyboard.move({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
    EXPECT_TRUE(waitUntil([this] { return presses == 1; }));
    EXPECT_FALSE(
        waitUntil([this] { return presses > 1; }, std::chrono::milliseconds(900))); // repeats
    keyboard.move({-KEY_K, -KEY_LEFTALT, -KEY_LEFTCTRL});
    EXPECT_FALSE(isHeard({KEY_LEFTCTRL, KEY_K}));
    configure("");
    EXPECT_TRUE(isHeard({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K}));
    registrar.unregisterHotKey(HotKeyId::Main);
    EXPECT_FALSE(isHeard({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K}));
}

TEST_F(SwayHotKeys, WhatTheUserHasBoundIsLeftAlone)
{
    const auto mark = qEnvironmentVariable("HOME") + "/mark"_L1;
    configure("set $mod Mod4\nbindsym $mod+Shift+space exec touch " + mark.toUtf8() + '\n');
    EXPECT_EQ(registrar.registerHotKey(HotKeyId::Main, 49, 0x300), 10);
    EXPECT_EQ(registrar.takenBy(), "exec touch "_L1 + mark);
    EXPECT_FALSE(isHeard({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_SPACE}));
    EXPECT_TRUE(waitUntil([&] { return QFile::exists(mark); }));
    EXPECT_EQ(registrar.registerHotKey(HotKeyId::Main, 49, 0x100), 0);
    EXPECT_EQ(registrar.takenBy(), QString());
    EXPECT_TRUE(isHeard({KEY_LEFTMETA, KEY_SPACE}));
}
