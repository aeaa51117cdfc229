// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ModifierKeys.h"
#include "VirtualKey.h"

#include <QString>

// A global hotkey in its stored form.
struct HotKeyConfig
{
    quint32 keyCode = VirtualKey::space;
    // A mask of StoredModifier bits.
    quint32 modifiers = StoredModifier::command | StoredModifier::shift;
    // The name shown to the user; stored, never recomputed.
    QString displayName = QStringLiteral("⌘⇧Space");

    // Whether the key is one of the modifier keys that can be a hotkey on their own.
    [[nodiscard]] bool isModifierOnly() const { return ModifierKeys::find(keyCode) != nullptr; }

    bool operator==(const HotKeyConfig &) const = default;
};
