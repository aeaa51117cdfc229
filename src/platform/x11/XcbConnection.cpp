// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "XcbConnection.h"

#include "XcbReply.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>

#include <xcb/xcb.h>

namespace {

quint32 rootOfScreen(const xcb_setup_t *setup, int number)
{
    auto screens = xcb_setup_roots_iterator(setup);
    for (; number > 0 && screens.rem > 1; --number)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data->root : 0;
}

} // namespace

void XcbConnection::Disconnect::operator()(xcb_connection_t *connection) const
{
    xcb_disconnect(connection);
}

XcbConnection::XcbConnection(Handler handler)
    : m_handler(std::move(handler))
{
    int screen = 0;
    m_connection.reset(xcb_connect(nullptr, &screen));
    if (!isUsable())
        return;
    m_root = rootOfScreen(xcb_get_setup(get()), screen);
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &XcbConnection::handleReadable);
}

XcbConnection::~XcbConnection() = default;

bool XcbConnection::isUsable() const
{
    return xcb_connection_has_error(get()) == 0;
}

std::unique_lock<std::mutex> XcbConnection::lockReplies() const
{
    return std::unique_lock(m_repliesMutex);
}

void XcbConnection::drain()
{
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(get())})
        m_handler(event.get());
    // A dead socket stays readable for ever.
    if (m_notifier && !isUsable())
        m_notifier->setEnabled(false);
}

void XcbConnection::handleReadable()
{
    lockReplies().unlock();
    drain();
}

void XcbConnection::drainSoon()
{
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool XcbConnection::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    drain();
    return true;
}
