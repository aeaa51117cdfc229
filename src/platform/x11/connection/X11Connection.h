// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <mutex>

class QSocketNotifier;
struct xcb_connection_t;

// A connection of our own to the X server whose events are handled on the thread that made it. When
// the server goes away it falls silent.
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

    // To be held from a request to its reply wherever another thread may ask. The reply wakes the
    // event loop too, which waits for the lock: unable to read meanwhile, it would turn in circles,
    // at times on the very core that the other thread needs.
    [[nodiscard]] std::unique_lock<std::mutex> lockReplies() const;

    // Handles the events that have arrived. A round trip reads events in passing without waking the
    // event loop: drain, now or soon, after each.
    void drain();
    // The same from the event loop. Any thread.
    void drainSoon();

protected:
    bool event(QEvent *event) override;

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const;
    };

    void handleReadable();

    Handler m_handler;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    quint32 m_root = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
    mutable std::mutex m_repliesMutex;
};
