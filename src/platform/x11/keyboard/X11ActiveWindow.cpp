// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11ActiveWindow.h"

#include "X11Property.h"
#include "X11RoundTrip.h"
#include "X11Selections.h"

#include <xcb/xcb.h>

quint32 activeWindow(X11Connection &connection)
{
    auto *const server = connection.get();
    const X11RoundTrip roundTrip(connection);
    const auto atom = X11Selections::atom(server, "_NET_ACTIVE_WINDOW");
    const auto property =
        replyTo(server,
                xcb_get_property(server, 0, connection.root(), atom, XCB_ATOM_WINDOW, 0, 1),
                xcb_get_property_reply);
    const auto windows = valuesOf<quint32>(property);
    return windows.empty() ? quint32{XCB_NONE} : windows.front();
}
