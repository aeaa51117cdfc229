// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandSeatKeyboard.h"

#include "WaylandConnection.h"

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>

WaylandSeatKeyboard::WaylandSeatKeyboard(WaylandConnection &connection, const WaylandKeymap &own)
    : m_connection(connection)
    , m_ownDescription(own.description())
    , m_keymap(own)
{
    static constexpr wl_seat_listener listener{&setCapabilities,
                                               [](void *, wl_seat *, const char *) {}};
    const auto lock = connection.lock();
    if (auto *const seat = connection.seat(); seat != nullptr)
        wl_seat_add_listener(seat, &listener, this);
}

QString WaylandSeatKeyboard::charactersTypedBy(quint32 virtualKeyCode) const
{
    const auto lock = m_connection.lock();
    return m_keymap.charactersTypedBy(virtualKeyCode);
}

void WaylandSeatKeyboard::setCapabilities(void *self, wl_seat *seat, quint32 capabilities)
{
    using Keyboard = wl_keyboard;
    static constexpr wl_keyboard_listener listener{
        &setKeymap,
        [](void *, Keyboard *, quint32, wl_surface *, wl_array *) {},
        [](void *, Keyboard *, quint32, wl_surface *) {},
        [](void *, Keyboard *, quint32, quint32, quint32, quint32) {},
        [](void *, Keyboard *, quint32, quint32, quint32, quint32, quint32) {},
        [](void *, Keyboard *, qint32, qint32) {}};
    auto &keyboard = *static_cast<WaylandSeatKeyboard *>(self);
    if ((capabilities & WL_SEAT_CAPABILITY_KEYBOARD) == 0 || keyboard.m_keyboard != nullptr)
        return;
    keyboard.m_keyboard = wl_seat_get_keyboard(seat);
    wl_keyboard_add_listener(keyboard.m_keyboard, &listener, self);
    keyboard.m_connection.flush();
}

void WaylandSeatKeyboard::setKeymap(
    void *self, wl_keyboard *, quint32 format, int file, quint32 size)
{
    auto &keyboard = *static_cast<WaylandSeatKeyboard *>(self);
    void *const memory = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    ::close(file);
    if (memory == MAP_FAILED)
        return;
    const QByteArray description(static_cast<const char *>(memory), static_cast<qsizetype>(size));
    ::munmap(memory, size);
    if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 && description != keyboard.m_ownDescription)
        keyboard.m_keymap = WaylandKeymap(description);
}
