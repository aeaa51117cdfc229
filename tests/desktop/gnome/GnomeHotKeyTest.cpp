// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "GnomeHotKeyRegistrar.h"
#include "GnomeModule.h"
#include "Process.h"
#include "X11InputConnection.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(GnomeHotKey, IsRefusedWhereTheDesktopOrTheUserHasItAlready)
{
    const auto list = u"org.gnome.settings-daemon.plugins.media-keys"_s;
    const auto path = u"/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/own/"_s;
    const auto entry = list + ".custom-keybinding:"_L1 + path;
    for (const auto &setting : {list + " custom-keybindings \"['"_L1 + path + "']\""_L1,
                                entry + " binding '<Primary><Alt>k'"_L1,
                                entry + " command 'their own'"_L1})
        ASSERT_EQ(runCommand("gsettings set "_L1 + setting).exitCode, 0);
    auto keybindings = GnomeModule::openKeybindings();
    ASSERT_TRUE(keybindings);
    X11InputConnection input;
    GnomeHotKeyRegistrar registrar(std::move(keybindings), input);
    const int taken = 10;
    // Key, modifiers, status and what has it.
    const std::tuple<quint32, quint32, int, QString> rows[] = {
        {49, 0x300, taken, u"input source"_s}, // Super Shift Space
        {55, 0x100, taken, u"window management"_s}, // left Super
        {59, 0x1000, taken, u"locate"_s}, // left Control
        {40, 0x1800, taken, u"their own"_s}, // Control Alt K
        {54, 0x100, 0, u""_s}, // right Super
        {2, 0x1800, 0, u""_s}, // Control Alt D
        {9999, 0, 2, u""_s},
    };
    for (const auto &[key, modifiers, status, owner] : rows) {
        EXPECT_EQ(registrar.registerHotKey(HotKeyId::Main, key, modifiers), status) << key;
        EXPECT_TRUE(registrar.takenBy().contains(owner)) << qPrintable(registrar.takenBy());
        EXPECT_EQ(registrar.takenBy().isEmpty(), owner.isEmpty());
    }
}
