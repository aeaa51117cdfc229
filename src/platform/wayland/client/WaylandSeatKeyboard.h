// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "WaylandKeymap.h"

#include <optional>

struct wl_keyboard;
struct wl_seat;
class WaylandConnection;

// The keyboard of the seat, for what its keys type. Any thread.
class WaylandSeatKeyboard final
{
public:
    // `own` describes the keyboard that we press keys on ourselves: it is not the user's.
    WaylandSeatKeyboard(WaylandConnection &connection, const WaylandKeymap &own);
    WaylandSeatKeyboard(const WaylandSeatKeyboard &) = delete;
    WaylandSeatKeyboard &operator=(const WaylandSeatKeyboard &) = delete;

    // Without modifiers, on its first layout; as an American keyboard until the seat has one.
    [[nodiscard]] QString charactersTypedBy(quint32 virtualKeyCode) const;

private:
    static void setCapabilities(void *self, wl_seat *seat, quint32 capabilities);
    static void setKeymap(void *self, wl_keyboard *, quint32 format, int file, quint32 size);

    WaylandConnection &m_connection;
    const QByteArray m_ownDescription;
    WaylandKeymap m_keymap;
    wl_keyboard *m_keyboard = nullptr;
};
