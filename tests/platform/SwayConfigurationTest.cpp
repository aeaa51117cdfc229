// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "KeyNames.h"
#include "SwayConfiguration.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SwayConfiguration, KnowsWhatIsBoundInTheDefaultMode)
{
    const TemporaryHome home;
    home.write(u"more/keys.conf"_s, "bindsym Mod4+Shift+space exec true");
    constexpr quint32 command = 0x100;
    constexpr quint32 shift = 0x200;
    const struct
    {
        const char *text;
        bool isTaken; // ⌘⇧Space
    } rows[] = {
        {"", false},
        {"bindsym Mod4+Shift+space exec true", true},
        {"bindsym --no-repeat --locked shift+super+Space \\\n  exec true", true},
        {"set $mod Mod4\nset $mod2 Mod1\nbindsym $mod+Shift+space exec true", true},
        {"set $mod Mod4\nset $mod2 Mod1\nbindsym $mod2+Shift+space exec true", false},
        {"bindcode Mod4+Shift+65 exec true", true},
        {"bindsym {\n  Mod4+Shift+space exec true\n}", true},
        {"mode default {\n  bindsym Mod4+Shift+space exec true\n}", true},
        {"mode \"resize\" {\n  bindsym Mod4+Shift+space exec true\n}", false},
        {"# bindsym Mod4+Shift+space exec true", false},
        {"bindsym Mod4+space exec true\nbindsym Mod4+Shift+Mod5+space exec true", false},
        {"bindsym Mod4+Shift+space exec true\nunbindsym Mod4+Shift+space", false},
        {"\"\"\nbindsym Mod4+Shift+space exec true", true},
        {"include more/*.conf", true},
        {"include none/*.conf\nbar {\n  bindsym Mod4+Shift+space exec true\n}", false},
    };
    for (const auto &[text, isTaken] : rows)
        EXPECT_EQ(SwayConfiguration(QString::fromUtf8(text), home.path())
                      .commandOf(keyNames(49, u" "_s), command | shift),
                  isTaken ? std::optional(u"exec true"_s) : std::nullopt)
            << text;
    // Names go by the American keyboard and by the user's own.
    EXPECT_EQ(keyNames(6, u"y"_s), (QStringList{u"52"_s, u"z"_s, u"y"_s}));
    EXPECT_EQ(keyNames(54, {}), (QStringList{u"134"_s, u"Super_R"_s}));
}
