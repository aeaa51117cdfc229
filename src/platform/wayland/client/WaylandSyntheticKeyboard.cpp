// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandSyntheticKeyboard.h"

#include "ChordKeys.h"
#include "PasteChordTable.h"
#include "WaylandConnection.h"
#include "WaylandKeymap.h"
#include "virtual-keyboard-unstable-v1.h"

#include <QElapsedTimer>

#include <algorithm>

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>

namespace {

// Milliseconds of the clock that input events carry.
quint32 now()
{
    QElapsedTimer timer;
    timer.start();
    return static_cast<quint32>(timer.msecsSinceReference());
}

} // namespace

bool WaylandSyntheticKeyboard::isOffered(const WaylandConnection &connection)
{
    return connection.offers(zwp_virtual_keyboard_manager_v1_interface.name);
}

WaylandSyntheticKeyboard::WaylandSyntheticKeyboard(WaylandConnection &connection,
                                                   const WaylandKeymap &keymap,
                                                   FocusedApplication::Finder focused)
    : m_connection(connection)
    , m_focused(std::move(focused))
{
    auto *const manager = connection.global<zwp_virtual_keyboard_manager_v1>(
        zwp_virtual_keyboard_manager_v1_interface, 1);
    const auto lock = connection.lock();
    m_keyboard =
        zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager, connection.seat());
    setKeymap(keymap);
    connection.flush();
}

WaylandSyntheticKeyboard::~WaylandSyntheticKeyboard()
{
    zwp_virtual_keyboard_v1_destroy(m_keyboard);
    m_connection.flush();
}

void WaylandSyntheticKeyboard::setKeymap(const WaylandKeymap &keymap)
{
    const auto description = keymap.description();
    const auto size = static_cast<size_t>(description.size());
    const int file = ::memfd_create("keymap", MFD_CLOEXEC);
    if (::write(file, description.constData(), size) == static_cast<ssize_t>(size))
        zwp_virtual_keyboard_v1_keymap(
            m_keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file, static_cast<quint32>(size));
    ::close(file);
}

std::optional<PasteChord> WaylandSyntheticKeyboard::pasteChordOfFocusedWindow()
{
    const auto application = m_focused();
    if (application.isKeyboardHeld)
        return std::nullopt;
    return pasteChordOf(application);
}

bool WaylandSyntheticKeyboard::post(PasteChord pasteChord)
{
    const auto chord = ChordKeys::of(pasteChord);
    const auto lock = m_connection.lock();
    for (const auto key : chord.keys) {
        if (key == chord.keys.back())
            zwp_virtual_keyboard_v1_modifiers(m_keyboard, chord.modifiers, 0, 0, 0);
        zwp_virtual_keyboard_v1_key(m_keyboard, now(), key, WL_KEYBOARD_KEY_STATE_PRESSED);
    }
    std::for_each(chord.keys.rbegin(), chord.keys.rend(), [this](quint32 key) {
        zwp_virtual_keyboard_v1_key(m_keyboard, now(), key, WL_KEYBOARD_KEY_STATE_RELEASED);
    });
    zwp_virtual_keyboard_v1_modifiers(m_keyboard, 0, 0, 0, 0);
    m_connection.flush();
    return true;
}
