// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Accelerator.h"
#include "ModifierKeys.h"

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Qt::StringLiterals;

TEST(Accelerator, IsUnderstoodInAllTheWaysThatDesktopsWriteIt)
{
    const auto keyTyping = [](quint32 symbol) -> std::optional<quint8> {
        return symbol == XKB_KEY_space ? std::optional<quint8>(65) : std::nullopt;
    };
    const auto commandShift = StoredModifier::command | StoredModifier::shift;
    // Absent: no key types it, or it is none.
    const std::pair<QString, std::optional<Accelerator>> rows[] = {
        {u"<Shift><Super>space"_s, Accelerator{commandShift, 65}},
        {u"<super><SHIFT>Space"_s, Accelerator{commandShift, 65}},
        {u"<Primary><Mod1>0x41"_s,
         Accelerator{StoredModifier::control | StoredModifier::option, 65}},
        {u"<Ctrl><Ctl>Above_Tab"_s, Accelerator{StoredModifier::control, 49}},
        {u"0x69"_s, Accelerator{0, 105}},
        {u"<Super>b"_s, std::nullopt},
        {u"<Hyper>space"_s, std::nullopt},
        {u"<Super"_s, std::nullopt},
        {u"/org/gnome/somewhere/"_s, std::nullopt},
        {u""_s, std::nullopt},
    };
    for (const auto &[text, expected] : rows) {
        const auto parsed = Accelerator::parse(text, keyTyping);
        EXPECT_EQ(parsed, expected) << qPrintable(text);
        if (expected) {
            EXPECT_EQ(Accelerator::parse(expected->text(), keyTyping), expected);
        }
    }
}
