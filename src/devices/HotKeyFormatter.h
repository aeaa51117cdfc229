// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyConfig.h"
#include "KeyEvent.h"

#include <QString>

#include <optional>

// The conversions between keyboard events and stored hotkeys, and the names shown for them.
namespace HotKeyFormatter {

// The name of a modifier key that can be a hotkey on its own, such as "右⌘"; absent for others.
[[nodiscard]] std::optional<QString> modifierOnlyDisplayName(quint32 keyCode);
// The stored modifier bit of such a key; 0 for others.
[[nodiscard]] quint32 modifierCarbonValue(quint32 keyCode);
// The stored modifier mask of an event's flags; Caps Lock has no part in it.
[[nodiscard]] quint32 carbonModifiers(quint32 modifierFlags);
// Whether the event's flags hold every modifier of a stored mask.
[[nodiscard]] bool carbonValueContains(quint32 modifierFlags, quint32 mask);
// The key's fixed name, else what it types, in capitals; absent when it types nothing.
[[nodiscard]] std::optional<QString> keyName(const KeyEvent &event);
// The symbols of a stored mask in the order ⌃⌥⇧⌘, then the key's name.
[[nodiscard]] QString displayName(quint32 modifiers, const QString &keyName);
// The hotkey of a key press, with or without modifiers; absent when the key has no name.
[[nodiscard]] std::optional<HotKeyConfig> config(const KeyEvent &keyDown);
// The hotkey of a modifier key, whether it went down or up; absent for other keys.
[[nodiscard]] std::optional<HotKeyConfig> configFromFlagsChanged(const KeyEvent &event);

} // namespace HotKeyFormatter

// The number whose bytes, highest first, are the four ASCII characters of the text.
[[nodiscard]] quint32 fourCharCode(const QString &text);
