// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ModifierKeys.h"

#include <QString>

#include <optional>

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
