// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// A global hotkey in its stored form.
struct HotKeyConfig
{
    // Virtual key code in macOS numbering: the key's position, whatever the layout. 49 is Space.
    quint32 keyCode = 49;
    // Modifier mask: 0x100 Command, 0x200 Shift, 0x800 Option, 0x1000 Control.
    quint32 modifiers = 0x300;
    // The name shown to the user; stored, never recomputed.
    QString displayName = QStringLiteral("⌘⇧Space");

    // Whether the key is one of the eight modifier keys that can be a hotkey on their own.
    [[nodiscard]] bool isModifierOnly() const
    {
        return (keyCode >= 54 && keyCode <= 56) || (keyCode >= 58 && keyCode <= 62);
    }

    bool operator==(const HotKeyConfig &) const = default;
};
