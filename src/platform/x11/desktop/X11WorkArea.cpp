// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11WorkArea.h"

#include "X11Reply.h"
#include "X11Selections.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <array>
#include <vector>

#include <xcb/xcb.h>

namespace {

constexpr quint32 longestClientList = 4096;

// What a panel reserves: the depth at each edge of the whole display, then from where to where
// along that edge; in the order of _NET_WM_STRUT_PARTIAL.
struct Strut
{
    int left, right, top, bottom;
    int leftStart, leftEnd, rightStart, rightEnd, topStart, topEnd, bottomStart, bottomEnd;
};

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

template<typename Value>
std::vector<Value> valuesOf(const X11Reply<xcb_get_property_reply_t> &reply)
{
    static_assert(sizeof(Value) == 4);
    if (!reply || reply->format != 32)
        return {};
    const auto *values = static_cast<const Value *>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

std::vector<xcb_window_t> clients(xcb_connection_t *connection)
{
    const auto list = X11Selections::atom(connection, "_NET_CLIENT_LIST");
    const auto request = xcb_get_property(
        connection, 0, rootWindow(connection), list, XCB_ATOM_WINDOW, 0, longestClientList);
    return valuesOf<xcb_window_t>(replyTo(connection, request, xcb_get_property_reply));
}

std::vector<Strut> struts(xcb_connection_t *connection)
{
    const auto property = X11Selections::atom(connection, "_NET_WM_STRUT_PARTIAL");
    std::vector<xcb_get_property_cookie_t> requests;
    for (const auto window : clients(connection))
        requests.push_back(
            xcb_get_property(connection, 0, window, property, XCB_ATOM_CARDINAL, 0, 12));
    std::vector<Strut> found;
    for (const auto request : requests) {
        const auto v = valuesOf<int>(replyTo(connection, request, xcb_get_property_reply));
        if (v.size() == 12)
            found.push_back(
                {v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11]});
    }
    return found;
}

// Reaching from edge to edge of a monitor, it belongs to a panel on the monitor behind.
int depth(int reserved, int whole)
{
    return reserved < whole ? reserved : 0;
}

QMargins reservedOf(const QRect &monitor, const Strut &strut, const QSize &display)
{
    const auto within = [&](int x, int y, int endX, int endY) {
        return (QRect(QPoint(x, y), QPoint(endX, endY)) & monitor).size();
    };
    const int right = display.width() - 1;
    const int bottom = display.height() - 1;
    return {
        depth(within(0, strut.leftStart, strut.left - 1, strut.leftEnd).width(), monitor.width()),
        depth(within(strut.topStart, 0, strut.topEnd, strut.top - 1).height(), monitor.height()),
        depth(within(right + 1 - strut.right, strut.rightStart, right, strut.rightEnd).width(),
              monitor.width()),
        depth(
            within(strut.bottomStart, bottom + 1 - strut.bottom, strut.bottomEnd, bottom).height(),
            monitor.height())};
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
        reserved = reserved | reservedOf(monitor, strut, display);
    return screen.geometry().marginsRemoved(reserved / scale);
}
