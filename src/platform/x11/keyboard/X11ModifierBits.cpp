// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11ModifierBits.h"

#include "ModifierKeys.h"
#include "X11KeyboardMap.h"

#include <X11/keysym.h>
#include <xcb/xcb.h>

X11ModifierBits X11ModifierBits::of(const X11KeyboardMap &map)
{
    X11ModifierBits bits;
    bits.super = map.modifierBits(XK_Super_L, XK_Super_R);
    bits.alt = map.modifierBits(XK_Alt_L, XK_Alt_R);
    bits.numLock = map.modifierBits(XK_Num_Lock, XK_Num_Lock);
    bits.scrollLock = map.modifierBits(XK_Scroll_Lock, XK_Scroll_Lock);
    return bits;
}

std::vector<quint16> X11ModifierBits::statesFor(quint32 modifiers) const
{
    std::vector<quint16> states{0};
    for (const auto &[stored, bits] : {std::pair<quint32, quint16>{StoredModifier::command, super},
                                       {StoredModifier::shift, quint16{XCB_MOD_MASK_SHIFT}},
                                       {StoredModifier::option, alt},
                                       {StoredModifier::control, quint16{XCB_MOD_MASK_CONTROL}}}) {
        if ((modifiers & stored) == 0)
            continue;
        std::vector<quint16> extended;
        for (const auto state : states)
            for (unsigned part = bits; part != 0; part = (part - 1) & bits)
                extended.push_back(static_cast<quint16>(state | part));
        states = std::move(extended);
    }
    return states;
}

std::vector<quint16> X11ModifierBits::lockCombinations() const
{
    std::vector<quint16> combinations{0};
    for (const quint16 lock : {quint16{XCB_MOD_MASK_LOCK}, numLock, scrollLock}) {
        const auto count = combinations.size();
        for (std::size_t i = 0; i < count; ++i)
            if ((combinations[i] & lock) != lock)
                combinations.push_back(static_cast<quint16>(combinations[i] | lock));
    }
    return combinations;
}
