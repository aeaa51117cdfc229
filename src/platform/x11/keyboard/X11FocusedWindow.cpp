// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11FocusedWindow.h"

#include "X11Connection.h"
#include "X11Reply.h"

#include <QByteArrayList>
#include <QtGlobal>

#include <algorithm>
#include <array>
#include <string_view>

#include <xcb/xcb.h>

namespace {

// Instance and class names of terminal emulators, in lower case, as their windows carry them.
constexpr std::array<std::string_view, 17> terminals{"alacritty",
                                                     "gnome-terminal",
                                                     "gnome-terminal-server",
                                                     "kitty",
                                                     "konsole",
                                                     "lxterminal",
                                                     "mate-terminal",
                                                     "qterminal",
                                                     "rxvt",
                                                     "st",
                                                     "st-256color",
                                                     "terminator",
                                                     "tilix",
                                                     "urxvt",
                                                     "uxterm",
                                                     "xfce4-terminal",
                                                     "xterm"};

// Instance and class; empty when the window carries none.
QByteArrayList classNames(xcb_connection_t *connection, xcb_window_t window)
{
    const auto request =
        xcb_get_property(connection, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 64);
    const X11Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, request, nullptr));
    if (!reply || reply->format != 8 || reply->value_len == 0)
        return {};
    const QByteArray names(static_cast<const char *>(xcb_get_property_value(reply.get())),
                           xcb_get_property_value_length(reply.get()));
    return names.toLower().split('\0');
}

// The parent; none for a root window or one that is gone.
xcb_window_t parentOf(xcb_connection_t *connection, xcb_window_t window)
{
    const X11Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    return tree ? tree->parent : xcb_window_t{XCB_NONE};
}

} // namespace

bool isFocusedWindowTerminal(const X11Connection &connection)
{
    auto *const server = connection.get();
    const auto replies = connection.lockReplies();
    const X11Reply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
    // Toolkits may give the focus to a child of the window that carries the name.
    auto window = focus ? focus->focus : xcb_window_t{XCB_NONE};
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT) {
        const auto names = classNames(server, window);
        if (!names.isEmpty())
            return std::ranges::any_of(names, [](const QByteArray &name) {
                return std::ranges::count(terminals, std::string_view(name.constData())) > 0;
            });
        window = parentOf(server, window);
    }
    return false;
}
