// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11Connection.h"

#include "X11Reply.h"

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

void X11Connection::Disconnect::operator()(xcb_connection_t *connection) const
{
    xcb_disconnect(connection);
}

X11Connection::X11Connection(Handler handler)
    : m_handler(std::move(handler))
{
    int screen = 0;
    m_connection.reset(xcb_connect(nullptr, &screen));
    if (!isUsable())
        return;
    m_root = rootOfScreen(xcb_get_setup(get()), screen);
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11Connection::handleReadable);
}

X11Connection::~X11Connection() = default;

bool X11Connection::isUsable() const
{
    return xcb_connection_has_error(get()) == 0;
}

void X11Connection::drain()
{
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(get())})
        m_handler(event.get());
    // A dead socket stays readable for ever.
    if (m_notifier && !isUsable())
        m_notifier->setEnabled(false);
}

void X11Connection::handleReadable()
{
    m_repliesMutex.lock();
    m_repliesMutex.unlock();
    drain();
}

void X11Connection::drainSoon()
{
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool X11Connection::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    drain();
    return true;
}
