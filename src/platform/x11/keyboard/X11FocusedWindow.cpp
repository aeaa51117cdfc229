// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11FocusedWindow.h"

#include "X11Property.h"
#include "X11RoundTrip.h"

#include <xcb/xcb.h>

namespace {

xcb_get_property_cookie_t requestNames(xcb_connection_t *connection, xcb_window_t window)
{
    return xcb_get_property(connection, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 64);
}

QByteArrayList namesIn(const X11Reply<xcb_get_property_reply_t> &reply)
{
    const auto text = valuesOf<char>(reply);
    if (text.empty())
        return {};
    return QByteArray(text.data(), static_cast<qsizetype>(text.size())).split('\0');
}

// Asks whether the keyboard would be refused to us. A grab for the very window that has the focus
// moves no focus, and keys that come in between wait for its end.
xcb_grab_keyboard_cookie_t tryKeyboard(xcb_connection_t *connection, xcb_window_t window)
{
    const auto request = xcb_grab_keyboard(
        connection, 1, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC);
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    return request;
}

// The parent; none for a root window or one that is gone.
xcb_window_t parentOf(xcb_connection_t *connection, xcb_window_t window)
{
    const auto tree = replyTo(connection, xcb_query_tree(connection, window), xcb_query_tree_reply);
    return tree ? tree->parent : xcb_window_t{XCB_NONE};
}

} // namespace

X11FocusedApplication focusedApplication(X11Connection &connection)
{
    auto *const server = connection.get();
    const X11RoundTrip roundTrip(connection);
    const auto focus = replyTo(server, xcb_get_input_focus(server), xcb_get_input_focus_reply);
    auto window = focus ? focus->focus : xcb_window_t{XCB_NONE};
    const bool isWindow = window > XCB_INPUT_FOCUS_POINTER_ROOT;
    const auto trial = tryKeyboard(server, isWindow ? window : connection.root());
    const auto namesRequest = requestNames(server, window);
    X11FocusedApplication application;
    const auto grab = replyTo(server, trial, xcb_grab_keyboard_reply);
    application.isKeyboardHeld = grab && grab->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
    application.names = namesIn(replyTo(server, namesRequest, xcb_get_property_reply));
    // Toolkits may give the focus to a child of the window that carries the names.
    while (isWindow && application.names.isEmpty() && window != XCB_NONE) {
        window = parentOf(server, window);
        application.names =
            namesIn(replyTo(server, requestNames(server, window), xcb_get_property_reply));
    }
    return application;
}
