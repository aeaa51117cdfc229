// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainQueue.h"

#include <QByteArray>

#include <atomic>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

struct wl_display;
struct wl_interface;
struct wl_registry;
struct wl_seat;

// A connection to the compositor with a thread of its own, on which its events are handled. Who
// makes an object and gives it its listener, or shares data with a listener, holds the lock.
class WaylandConnection final
{
public:
    // Connects and learns what the compositor offers; null when there is none.
    [[nodiscard]] static std::unique_ptr<WaylandConnection> open();
    ~WaylandConnection();
    WaylandConnection(const WaylandConnection &) = delete;
    WaylandConnection &operator=(const WaylandConnection &) = delete;

    // Handles events from now on. When the compositor is gone, `lost` is called, on the thread or
    // wherever Qt has noticed it.
    void start(MainQueue &mainQueue, std::function<void()> lost);
    // Ends the thread: no listener is called after this.
    void stop();

    [[nodiscard]] bool offers(std::string_view interface) const;
    // The global of this interface, in this version at most; null when there is none. Bound once.
    template<typename Global>
    [[nodiscard]] Global *global(const wl_interface &interface, quint32 highestVersion)
    {
        return static_cast<Global *>(bind(interface, highestVersion));
    }
    [[nodiscard]] wl_seat *seat();

    [[nodiscard]] std::unique_lock<std::recursive_mutex> lock()
    {
        return std::unique_lock(m_mutex);
    }
    // Sends the requests made so far.
    void flush();
    // Writes everything to the file, as fast as its reader reads, and closes it. On the thread.
    void write(int file, const QByteArray &data);
    // Runs the work on the main thread, later.
    void post(MainQueue::Work work) { m_mainQueue->post(std::move(work)); }

private:
    struct Offer
    {
        quint32 name = 0;
        quint32 version = 0;
        void *bound = nullptr;
    };
    struct Transfer
    {
        int file = -1;
        QByteArray data;
        qsizetype written = 0;
    };

    explicit WaylandConnection(wl_display *display);

    static void
    addGlobal(void *self, wl_registry *, quint32 name, const char *interface, quint32 version);
    static void removeGlobal(void *self, wl_registry *, quint32 name);

    void *bind(const wl_interface &interface, quint32 highestVersion);
    void run();
    [[nodiscard]] bool handleEvents();
    void writeOn(Transfer &transfer);
    void wake() const;
    [[nodiscard]] bool isLost() const;
    static void handleMessage(QtMsgType type, const QMessageLogContext &, const QString &text);

    wl_display *m_display = nullptr;
    wl_registry *m_registry = nullptr;
    std::map<std::string, Offer, std::less<>> m_offers; // by interface
    std::recursive_mutex m_mutex;
    MainQueue *m_mainQueue = nullptr;
    std::function<void()> m_lost;
    std::list<Transfer> m_transfers; // on the thread only
    int m_wake = -1;
    std::atomic<bool> m_isStopping = false;
    std::thread m_thread;
};
