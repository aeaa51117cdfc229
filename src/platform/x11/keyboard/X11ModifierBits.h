// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <vector>

class X11KeyboardMap;

// The bits by which the display reports the modifiers that have no fixed one.
struct X11ModifierBits
{
    quint16 super = 0;
    quint16 alt = 0;
    quint16 numLock = 0;
    quint16 scrollLock = 0;

    [[nodiscard]] static X11ModifierBits of(const X11KeyboardMap &map);

    // What the display may report for a mask of stored modifier bits: more than one state where two
    // keys of a modifier set different bits, none when the keyboard has no key for one of them.
    [[nodiscard]] std::vector<quint16> statesFor(quint32 modifiers) const;
    // Every combination of the lock keys, none included.
    [[nodiscard]] std::vector<quint16> lockCombinations() const;

    bool operator==(const X11ModifierBits &) const = default;
};
