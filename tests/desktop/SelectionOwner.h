// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "X11Connection.h"
#include "X11Selections.h"

#include <xcb/xcb.h>

// Makes a window of the connection the owner of a selection and returns the selection's atom.
inline xcb_atom_t ownSelection(const X11Connection &connection, const QByteArray &name)
{
    auto *server = connection.get();
    const auto selection = X11Selections::atom(server, name);
    const auto window = xcb_generate_id(server);
    xcb_create_window(server, 0, window, connection.root(), 0, 0, 9, 9, 0, 0, 0, 0, nullptr);
    xcb_set_selection_owner(server, window, selection, XCB_CURRENT_TIME);
    // A round trip: it is done when this returns.
    static_cast<void>(X11Selections::owner(server, selection));
    return selection;
}
