// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HotKeyFormatter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(HotKeyFormatterTest, keyDownEventsBecomeHotKeys)
{
    using namespace ModifierFlag;
    const std::pair<KeyEvent, std::optional<HotKeyConfig>> rows[] = {
        {{0, command | option, u"a"_s}, HotKeyConfig{0, 0x900, u"⌥⌘A"_s}},
        {{40, control | option | shift | command, u"k"_s}, HotKeyConfig{40, 0x1b00, u"⌃⌥⇧⌘K"_s}},
        {{49, shift, u" "_s}, HotKeyConfig{49, 0x200, u"⇧Space"_s}},
        {{53, control, u"\u001b"_s}, HotKeyConfig{53, 0x1000, u"⌃Esc"_s}},
        {{36, 0, {}}, HotKeyConfig{36, 0, u"Return"_s}},
        {{48, capsLock, {}}, HotKeyConfig{48, 0, u"Tab"_s}},
        {{51, 0, {}}, HotKeyConfig{51, 0, u"Delete"_s}},
        {{117, 0, {}}, HotKeyConfig{117, 0, u"Forward Delete"_s}},
        {{123, 0, {}}, HotKeyConfig{123, 0, u"←"_s}},
        {{124, 0, {}}, HotKeyConfig{124, 0, u"→"_s}},
        {{126, 0, {}}, HotKeyConfig{126, 0, u"↑"_s}},
        {{125, 0, {}}, HotKeyConfig{125, 0, u"↓"_s}},
        {{122, 0, {}}, HotKeyConfig{122, 0, u"F1"_s}},
        {{96, command, QString()}, HotKeyConfig{96, 0x100, u"⌘F5"_s}},
        {{90, 0, {}}, HotKeyConfig{90, 0, u"F20"_s}},
        {{27, 0, u"ß"_s}, HotKeyConfig{27, 0, u"SS"_s}},
        {{41, 0, u" ;\n"_s}, HotKeyConfig{41, 0, u";"_s}},
        {{0, 0, u" \t\u00a0\n"_s}, std::nullopt},
        {{114, 0, {}}, std::nullopt},
    };
    for (const auto &[event, expected] : rows) {
        const auto hotKey = HotKeyFormatter::config(event);
        EXPECT_EQ(hotKey, expected) << (hotKey ? hotKey->displayName.toStdString() : "none");
    }
}

TEST(HotKeyFormatterTest, eightModifierKeysAreHotKeysOnTheirOwn)
{
    int modifiers = 0;
    for (quint32 keyCode = 0; keyCode < 300; ++keyCode) {
        const auto value = HotKeyFormatter::modifierCarbonValue(keyCode);
        const auto hotKey = HotKeyFormatter::configFromFlagsChanged({keyCode, 0, {}});
        EXPECT_EQ(hotKey.has_value(), value != 0) << keyCode;
        EXPECT_EQ(hotKey.has_value(), (HotKeyConfig{keyCode, 7, {}}.isModifierOnly())) << keyCode;
        EXPECT_EQ(hotKey ? hotKey->modifiers : 0, value) << keyCode;
        modifiers += hotKey ? 1 : 0;
    }
    EXPECT_EQ(modifiers, 8);
}

TEST(HotKeyFormatterTest, flagsContainMasks)
{
    using HotKeyFormatter::carbonValueContains;
    EXPECT_EQ(HotKeyFormatter::carbonModifiers(ModifierFlag::capsLock | 0x800000 | 0x200000), 0U);
    EXPECT_TRUE(carbonValueContains(0, 0));
    EXPECT_TRUE(carbonValueContains(ModifierFlag::shift | ModifierFlag::command, 0x100));
    EXPECT_FALSE(carbonValueContains(ModifierFlag::shift, 0x300));
    EXPECT_EQ(fourCharCode(u"HWRF"_s), 0x48575246U);
}

} // namespace
