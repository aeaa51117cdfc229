// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ChordKeys.h"

#include <linux/input-event-codes.h>

namespace {

constexpr quint32 shift = 1;
constexpr quint32 control = 4;

} // namespace

ChordKeys ChordKeys::of(PasteChord chord)
{
    switch (chord) {
    case PasteChord::ShiftInsert:
        return {{KEY_LEFTSHIFT, KEY_INSERT}, shift};
    case PasteChord::ControlV:
        break;
    }
    return {{KEY_LEFTCTRL, KEY_V}, control};
}
