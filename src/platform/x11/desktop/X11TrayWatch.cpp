// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11TrayWatch.h"

#include "X11Selections.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <xcb/xcb.h>

X11TrayWatch::~X11TrayWatch()
{
    if (m_managerAtom != 0)
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

void X11TrayWatch::start(Handler handler)
{
    auto *connection = X11Selections::applicationConnection();
    if (!connection)
        return;
    m_handler = std::move(handler);
    m_managerAtom = X11Selections::atom(connection, "MANAGER");
    m_traySelection =
        X11Selections::atom(connection, X11Selections::nameForScreen("_NET_SYSTEM_TRAY_S"));
    // Qt listens on the root window, where a new tray announces itself.
    QCoreApplication::instance()->installNativeEventFilter(this);
    if (X11Selections::owner(connection, m_traySelection) != 0)
        report();
}

bool X11TrayWatch::nativeEventFilter(const QByteArray &, void *message, qintptr *)
{
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    constexpr int sentBit = 0x80;
    if ((event->response_type & ~sentBit) != XCB_CLIENT_MESSAGE)
        return false;
    const auto *announcement = static_cast<const xcb_client_message_event_t *>(message);
    if (announcement->type == m_managerAtom && announcement->data.data32[1] == m_traySelection)
        report();
    return false;
}

// Not from within the event filter, where the handler's own dealings with X would be nested.
void X11TrayWatch::report()
{
    QMetaObject::invokeMethod(this, m_handler, Qt::QueuedConnection);
}
