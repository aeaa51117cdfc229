// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PortalSyntheticKeyboard.h"

#include <linux/input-event-codes.h>

PortalSyntheticKeyboard::PortalSyntheticKeyboard(PortalRemoteKeyboard::Token token)
    : m_keyboard(std::move(token))
{}

PortalSyntheticKeyboard::~PortalSyntheticKeyboard() = default;

std::optional<PasteChord> PortalSyntheticKeyboard::pasteChordOfFocusedWindow()
{
    return m_keyboard.isAnswered() ? std::optional(PasteChord::ShiftInsert) : std::nullopt;
}

bool PortalSyntheticKeyboard::post(PasteChord)
{
    return m_keyboard.tap({KEY_LEFTSHIFT, KEY_INSERT});
}
