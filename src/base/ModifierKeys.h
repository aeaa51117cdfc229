// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <algorithm>

// Bits of KeyEvent::modifierFlags.
namespace ModifierFlag {
inline constexpr quint32 capsLock = 0x10000;
inline constexpr quint32 shift = 0x20000;
inline constexpr quint32 control = 0x40000;
inline constexpr quint32 option = 0x80000;
inline constexpr quint32 command = 0x100000;
} // namespace ModifierFlag

// Bits of HotKeyConfig::modifiers.
namespace StoredModifier {
inline constexpr quint32 command = 0x100;
inline constexpr quint32 shift = 0x200;
inline constexpr quint32 option = 0x800;
inline constexpr quint32 control = 0x1000;
} // namespace StoredModifier

// One of the modifiers of a hotkey.
struct Modifier
{
    quint32 storedBit = 0;
    quint32 flag = 0;
    QStringView symbol;
};

// A key that sets a modifier while it is held, and can be a hotkey on its own.
struct ModifierKey
{
    quint32 keyCode = 0; // virtual key code
    Modifier modifier;
    QStringView displayName;
};

// Every modifier and every modifier key: one more is one more row.
namespace ModifierKeys {

inline constexpr Modifier control{StoredModifier::control, ModifierFlag::control, u"⌃"};
inline constexpr Modifier option{StoredModifier::option, ModifierFlag::option, u"⌥"};
inline constexpr Modifier shift{StoredModifier::shift, ModifierFlag::shift, u"⇧"};
inline constexpr Modifier command{StoredModifier::command, ModifierFlag::command, u"⌘"};

// In the order in which names show them.
inline constexpr Modifier modifiers[] = {control, option, shift, command};

inline constexpr ModifierKey keys[] = {{55, command, u"左⌘"},
                                       {54, command, u"右⌘"},
                                       {56, shift, u"左⇧"},
                                       {60, shift, u"右⇧"},
                                       {58, option, u"左⌥"},
                                       {61, option, u"右⌥"},
                                       {59, control, u"左⌃"},
                                       {62, control, u"右⌃"}};

// The row of this virtual key code; null for other keys.
[[nodiscard]] constexpr const ModifierKey *find(quint32 keyCode)
{
    const auto *const found = std::ranges::find(keys, keyCode, &ModifierKey::keyCode);
    return found == std::end(keys) ? nullptr : found;
}

} // namespace ModifierKeys
