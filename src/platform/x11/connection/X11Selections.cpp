// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11Selections.h"

#include "X11Reply.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

xcb_connection_t *X11Selections::applicationConnection()
{
    // The offscreen platform has the interface too, with no connection behind it.
    if (QGuiApplication::platformName() != "xcb"_L1)
        return nullptr;
    const auto *native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native ? native->connection() : nullptr;
}

quint32 X11Selections::atom(xcb_connection_t *connection, const QByteArray &name)
{
    const auto cookie = xcb_intern_atom(connection, 0, quint16(name.size()), name.constData());
    const auto reply = replyTo(connection, cookie, xcb_intern_atom_reply);
    return reply ? reply->atom : 0;
}

QByteArray X11Selections::nameForScreen(const QByteArray &prefix)
{
    int display = 0;
    int screen = 0;
    char *host = nullptr;
    xcb_parse_display(nullptr, &host, &display, &screen);
    const X11Reply<char> freedHost{host};
    return prefix + QByteArray::number(screen);
}

quint32 X11Selections::owner(xcb_connection_t *connection, quint32 selection)
{
    const auto cookie = xcb_get_selection_owner(connection, selection);
    const auto reply = replyTo(connection, cookie, xcb_get_selection_owner_reply);
    return reply ? reply->owner : 0;
}
