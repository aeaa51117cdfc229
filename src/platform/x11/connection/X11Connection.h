// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <mutex>

class QSocketNotifier;
struct xcb_connection_t;

// A connection of our own to the X server whose events are handled on the thread that made it. What
// asks the server does so within an X11RoundTrip. When the server goes away it falls silent.
class X11Connection final : public QObject
{
public:
    // Is given an xcb_generic_event_t, which has no name of its own to declare ahead.
    using Handler = std::function<void(const void *)>;

    // Connects to the display of the environment; the handler is called for every event.
    explicit X11Connection(Handler handler);
    ~X11Connection() override;

    [[nodiscard]] bool isUsable() const;
    [[nodiscard]] xcb_connection_t *get() const { return m_connection.get(); }
    // The root window of the display's default screen; 0 without a display.
    [[nodiscard]] quint32 root() const { return m_root; }

    // Handles the events that have arrived.
    void drain();

protected:
    bool event(QEvent *event) override;

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const;
    };

    void handleReadable();
    // Drains from the event loop. Any thread.
    void drainSoon();

    friend class X11RoundTrip;
    Handler m_handler;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    quint32 m_root = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::mutex m_repliesMutex; // held by an X11RoundTrip
};
