// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11WorkArea.h"

#include "X11Property.h"
#include "X11Selections.h"
#include "X11Strut.h"

#include <QGuiApplication>
#include <QScreen>

#include <vector>

#include <xcb/xcb.h>

namespace {

constexpr quint32 longestClientList = 4096;

xcb_window_t rootWindow(xcb_connection_t *connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

QSize sizeOf(xcb_connection_t *connection, xcb_window_t window)
{
    const auto size =
        replyTo(connection, xcb_get_geometry(connection, window), xcb_get_geometry_reply);
    return size ? QSize(size->width, size->height) : QSize();
}

std::vector<xcb_window_t> clients(xcb_connection_t *connection)
{
    const auto list = X11Selections::atom(connection, "_NET_CLIENT_LIST");
    const auto request = xcb_get_property(
        connection, 0, rootWindow(connection), list, XCB_ATOM_WINDOW, 0, longestClientList);
    return valuesOf<xcb_window_t>(replyTo(connection, request, xcb_get_property_reply));
}

std::vector<X11Strut> struts(xcb_connection_t *connection)
{
    const auto property = X11Selections::atom(connection, "_NET_WM_STRUT_PARTIAL");
    std::vector<xcb_get_property_cookie_t> requests;
    for (const auto window : clients(connection))
        requests.push_back(
            xcb_get_property(connection, 0, window, property, XCB_ATOM_CARDINAL, 0, 12));
    std::vector<X11Strut> found;
    found.reserve(requests.size());
    for (const auto request : requests)
        found.emplace_back(valuesOf<quint32>(replyTo(connection, request, xcb_get_property_reply)));
    return found;
}

} // namespace

QRect workArea(const QScreen &screen)
{
    auto *connection = X11Selections::applicationConnection();
    if (!connection || QGuiApplication::screens().size() < 2)
        return screen.availableGeometry();
    // A scaled monitor keeps its place; all else of it is counted from there.
    const qreal scale = screen.devicePixelRatio();
    const QRect monitor(screen.geometry().topLeft(), screen.geometry().size() * scale);
    const auto display = sizeOf(connection, rootWindow(connection));
    QMargins reserved;
    for (const auto &strut : struts(connection))
        reserved = reserved | strut.reservedOf(monitor, display);
    return screen.geometry().marginsRemoved(reserved / scale);
}
