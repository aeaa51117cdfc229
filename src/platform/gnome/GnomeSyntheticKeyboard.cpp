// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "GnomeSyntheticKeyboard.h"

#include "KeyCodes.h"
#include "MutterRemoteKeyboard.h"
#include "PasteChordTable.h"
#include "X11InputConnection.h"
#include "X11KeyboardMap.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <linux/input-event-codes.h>

GnomeSyntheticKeyboard::GnomeSyntheticKeyboard(X11InputConnection &input,
                                               FocusedApplication::Finder focused,
                                               std::function<bool(quint32)> isHotKey)
    : m_input(input)
    , m_focused(std::move(focused))
    , m_isHotKey(std::move(isHotKey))
{}

GnomeSyntheticKeyboard::~GnomeSyntheticKeyboard() = default;

// Which selection a program reads that nobody knows is not known either: this chord is right for
// terminals and for others, as both selections hold the text then.
std::optional<PasteChord> GnomeSyntheticKeyboard::pasteChordOfFocusedWindow()
{
    const auto names = m_focused().names;
    return names.isEmpty() || !keyTyping(XKB_KEY_v) ? PasteChord::ShiftInsert : pasteChordOf(names);
}

bool GnomeSyntheticKeyboard::post(PasteChord chord)
{
    const quint32 shift = m_isHotKey(KEY_LEFTSHIFT) ? KEY_RIGHTSHIFT : KEY_LEFTSHIFT;
    const quint32 control = m_isHotKey(KEY_LEFTCTRL) ? KEY_RIGHTCTRL : KEY_LEFTCTRL;
    if (chord == PasteChord::ShiftInsert)
        return MutterRemoteKeyboard::tap({shift, KEY_INSERT});
    const auto key = keyTyping(XKB_KEY_v);
    return key && MutterRemoteKeyboard::tap({control, *key});
}

std::optional<quint32> GnomeSyntheticKeyboard::keyTyping(quint32 symbol)
{
    const auto map = X11KeyboardMap::read(m_input.connection());
    const auto key = map ? map->keyTyping(symbol) : std::nullopt;
    return key ? std::optional(*key - KeyCodes::displayOffset) : std::nullopt;
}
