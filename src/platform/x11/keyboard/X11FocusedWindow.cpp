// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11FocusedWindow.h"

#include "X11Reply.h"
#include "X11RoundTrip.h"

#include <xcb/xcb.h>

namespace {

QByteArrayList namesOf(xcb_connection_t *connection, xcb_window_t window)
{
    const auto request =
        xcb_get_property(connection, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 64);
    const auto reply = replyTo(connection, request, xcb_get_property_reply);
    if (!reply || reply->format != 8 || reply->value_len == 0)
        return {};
    return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()))
        .split('\0');
}

// The parent; none for a root window or one that is gone.
xcb_window_t parentOf(xcb_connection_t *connection, xcb_window_t window)
{
    const auto tree = replyTo(connection, xcb_query_tree(connection, window), xcb_query_tree_reply);
    return tree ? tree->parent : xcb_window_t{XCB_NONE};
}

} // namespace

QByteArrayList focusedApplicationNames(X11Connection &connection)
{
    auto *const server = connection.get();
    const X11RoundTrip roundTrip(connection);
    const auto focus = replyTo(server, xcb_get_input_focus(server), xcb_get_input_focus_reply);
    // Toolkits may give the focus to a child of the window that carries the names.
    auto window = focus ? focus->focus : xcb_window_t{XCB_NONE};
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT) {
        const auto names = namesOf(server, window);
        if (!names.isEmpty())
            return names;
        window = parentOf(server, window);
    }
    return {};
}
