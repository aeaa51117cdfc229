// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "KdeHotKeyRegistrar.h"
#include "Process.h"
#include "SessionKeyboard.h"
#include "WaitUntil.h"

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class KdeHotKeys : public testing::Test
{
protected:
    KdeHotKeys()
    {
        registrar.setHandler([this](HotKeyId) { ++presses; });
    }

    int presses = 0;
    SessionKeyboard keyboard;
    KdeHotKeyRegistrar registrar{[](quint32) { return u"k"_s; }};
};

TEST_F(KdeHotKeys, AHeldKeyIsOnePressUntilItIsGivenBack)
{
    ASSERT_EQ(registrar.registerHotKey(HotKeyId::Main, 40, 0x1800), 0); // ⌃⌥K
    for (int expected = 1; expected < 3; ++expected) {
        keyboard.move({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
        EXPECT_TRUE(waitUntil([&] { return presses == expected; }));
        EXPECT_FALSE(waitUntil([&] { return presses > expected; }, 1500ms)); // repeats
        keyboard.move({-KEY_K, -KEY_LEFTALT, -KEY_LEFTCTRL});
        EXPECT_FALSE(waitUntil([&] { return presses > expected; }, 200ms)); // the release arrives
    }
    registrar.unregisterHotKey(HotKeyId::Main);
    keyboard.tap({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
    EXPECT_FALSE(waitUntil([&] { return presses > 2; }, 300ms));
}

TEST_F(KdeHotKeys, ATakenCombinationIsRefusedWithItsOwnersName)
{
    const auto take = u"gdbus call --session --dest org.kde.kglobalaccel --object-path "
                      "/kglobalaccel --method org.kde.KGlobalAccel."_s;
    const auto action = u"\"['other','act','Other Program','Act']\""_s;
    ASSERT_EQ(runCommand(take + "doRegister "_L1 + action).exitCode, 0);
    // ⌘⇧Space, by the service's number for it.
    ASSERT_EQ(runCommand(take + "setShortcut "_L1 + action + " '[301989920]' 6"_L1).exitCode, 0);
    EXPECT_EQ(registrar.registerHotKey(HotKeyId::Main, 49, 0x300), 10);
    EXPECT_EQ(registrar.takenBy(), u"Other Program"_s);
    EXPECT_EQ(registrar.registerHotKey(HotKeyId::Main, 49, 0x100), 0);
    EXPECT_EQ(registrar.takenBy(), QString());
}

TEST_F(KdeHotKeys, AModifierKeyOnItsOwnIsHeard)
{
    ASSERT_EQ(registrar.registerHotKey(HotKeyId::Main, 62, 0x1000), 0); // right Control
    for (int expected = 1; expected < 3; ++expected)
        EXPECT_TRUE(waitUntil([&] {
            keyboard.tap({KEY_RIGHTCTRL}); // a first key may come too early
            return waitUntil([&] { return presses >= expected; }, 500ms);
        }));
}
