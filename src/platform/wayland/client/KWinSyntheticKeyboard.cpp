// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "KWinSyntheticKeyboard.h"

#include "AppRuntime.h"
#include "ChordKeys.h"
#include "KeyCodes.h"
#include "ModifierKeys.h"
#include "PasteChordTable.h"
#include "WaylandConnection.h"
#include "fake-input.h"

#include <algorithm>

bool KWinSyntheticKeyboard::isOffered(const WaylandConnection &connection)
{
    return connection.offers(org_kde_kwin_fake_input_interface.name);
}

KWinSyntheticKeyboard::KWinSyntheticKeyboard(WaylandConnection &connection,
                                             std::function<bool()> typesV,
                                             FocusedApplication::Finder focused)
    : m_connection(connection)
    , m_typesV(std::move(typesV))
    , m_focused(std::move(focused))
    , m_input(connection.global<org_kde_kwin_fake_input>(org_kde_kwin_fake_input_interface, 4))
{
    org_kde_kwin_fake_input_authenticate(
        m_input, AppRuntime::appName.data(), "Types what was dictated");
    connection.flush();
}

KWinSyntheticKeyboard::~KWinSyntheticKeyboard() = default;

std::optional<PasteChord> KWinSyntheticKeyboard::pasteChordOfFocusedWindow()
{
    const auto application = m_focused();
    if (application.isKeyboardHeld)
        return std::nullopt;
    return m_typesV() ? pasteChordOf(application) : PasteChord::ShiftInsert;
}

bool KWinSyntheticKeyboard::post(PasteChord chord)
{
    const auto press = [this](quint32 key, bool isDown) {
        org_kde_kwin_fake_input_keyboard_key(m_input, key, isDown ? 1 : 0);
    };
    const auto lock = m_connection.lock();
    // What fingers hold down would be part of the chord. Going up is nothing to a key that is up.
    for (const auto &modifier : ModifierKeys::keys)
        press(KeyCodes::kernelCode(modifier.keyCode).value_or(0), false);
    const auto keys = ChordKeys::of(chord).keys;
    for (const auto key : keys)
        press(key, true);
    std::for_each(keys.rbegin(), keys.rend(), [&](quint32 key) { press(key, false); });
    m_connection.flush();
    return true;
}
