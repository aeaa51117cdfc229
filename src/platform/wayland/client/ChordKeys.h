// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PasteChord.h"

#include <QtGlobal>

#include <vector>

// The keys of a paste chord.
struct ChordKeys
{
    std::vector<quint32> keys; // kernel codes, as they go down; the last is no modifier
    quint32 modifiers = 0; // what they set, by the bits that every keyboard description has

    [[nodiscard]] static ChordKeys of(PasteChord chord);
};
