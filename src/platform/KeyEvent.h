// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

// Bits of KeyEvent::modifierFlags.
namespace ModifierFlag {
inline constexpr quint32 capsLock = 0x10000;
inline constexpr quint32 shift = 0x20000;
inline constexpr quint32 control = 0x40000;
inline constexpr quint32 option = 0x80000;
inline constexpr quint32 command = 0x100000;
} // namespace ModifierFlag

// A key pressed, or a modifier key pressed or released, as the hotkey model sees it.
struct KeyEvent
{
    // Virtual key code in the stored (macOS) numbering: the key's position, whatever the layout.
    quint32 keyCode = 0;
    // The ModifierFlag bits of the modifier keys down after the event.
    quint32 modifierFlags = 0;
    // What the key types on the current layout without modifiers; absent for modifier changes.
    std::optional<QString> charactersIgnoringModifiers;

    bool operator==(const KeyEvent &) const = default;
};
