// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandConnection.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <vector>

#include <fcntl.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <wayland-client.h>

namespace {

// Qt has a connection of its own, and ends the process without further ado when it is the first to
// notice that the compositor is gone. All it does before is to say so.
WaylandConnection *watched = nullptr;
QtMessageHandler previousHandler = nullptr;

} // namespace

std::unique_ptr<WaylandConnection> WaylandConnection::open()
{
    auto *const display = wl_display_connect(nullptr);
    if (display == nullptr)
        return {};
    std::unique_ptr<WaylandConnection> connection(new WaylandConnection(display));
    return wl_display_roundtrip(display) < 0 ? nullptr : std::move(connection);
}

WaylandConnection::WaylandConnection(wl_display *display)
    : m_display(display)
    , m_registry(wl_display_get_registry(display))
    , m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    static constexpr wl_registry_listener listener{&addGlobal, &removeGlobal};
    wl_registry_add_listener(m_registry, &listener, this);
}

WaylandConnection::~WaylandConnection()
{
    stop();
    wl_registry_destroy(m_registry);
    wl_display_disconnect(m_display);
    ::close(m_wake);
}

void WaylandConnection::start(MainQueue &mainQueue, std::function<void()> lost)
{
    m_mainQueue = &mainQueue;
    m_lost = std::move(lost);
    watched = this;
    previousHandler = qInstallMessageHandler(&handleMessage);
    m_thread = std::thread([this] { run(); });
}

void WaylandConnection::stop()
{
    if (watched == this) {
        watched = nullptr;
        qInstallMessageHandler(previousHandler);
    }
    m_isStopping = true;
    wake();
    if (m_thread.joinable())
        m_thread.join();
}

bool WaylandConnection::offers(std::string_view interface) const
{
    return m_offers.find(interface) != m_offers.end();
}

wl_seat *WaylandConnection::seat()
{
    return global<wl_seat>(wl_seat_interface, 1);
}

void WaylandConnection::flush()
{
    wl_display_flush(m_display);
}

void WaylandConnection::write(int file, const QByteArray &data)
{
    ::fcntl(file, F_SETFL, ::fcntl(file, F_GETFL) | O_NONBLOCK);
    m_transfers.push_back({file, data});
}

void WaylandConnection::addGlobal(
    void *self, wl_registry *, quint32 name, const char *interface, quint32 version)
{
    // Of several of a kind, such as monitors, the first.
    static_cast<WaylandConnection *>(self)->m_offers.try_emplace(interface, Offer{name, version});
}

void WaylandConnection::removeGlobal(void *, wl_registry *, quint32) {}

void *WaylandConnection::bind(const wl_interface &interface, quint32 highestVersion)
{
    const auto offer = m_offers.find(std::string_view(interface.name));
    if (offer == m_offers.end())
        return nullptr;
    auto &[name, version, bound] = offer->second;
    if (bound == nullptr)
        bound = wl_registry_bind(m_registry, name, &interface, std::min(version, highestVersion));
    return bound;
}

void WaylandConnection::run()
{
    while (!m_isStopping) {
        if (handleEvents())
            continue;
        if (!m_isStopping)
            m_lost();
        return;
    }
}

// Waits for something to do and does it. False when the compositor is gone.
bool WaylandConnection::handleEvents()
{
    {
        const auto guard = lock();
        while (wl_display_prepare_read(m_display) != 0)
            if (wl_display_dispatch_pending(m_display) < 0)
                return false;
    }
    flush();
    std::vector<pollfd> files{{wl_display_get_fd(m_display), POLLIN, 0}, {m_wake, POLLIN, 0}};
    for (const auto &transfer : m_transfers)
        files.push_back({transfer.file, POLLOUT, 0});
    ::poll(files.data(), files.size(), -1);
    if (files[0].revents == 0)
        wl_display_cancel_read(m_display);
    else if (wl_display_read_events(m_display) < 0)
        return false;
    // What became ready is found out by trying.
    for (auto &transfer : m_transfers)
        writeOn(transfer);
    m_transfers.remove_if([](const Transfer &transfer) { return transfer.file < 0; });
    const auto guard = lock();
    return wl_display_dispatch_pending(m_display) >= 0;
}

void WaylandConnection::writeOn(Transfer &transfer)
{
    const auto left = transfer.data.size() - transfer.written;
    const auto count = ::write(
        transfer.file, transfer.data.constData() + transfer.written, static_cast<size_t>(left));
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    transfer.written += count;
    if (count > 0 && transfer.written < transfer.data.size())
        return;
    ::close(std::exchange(transfer.file, -1));
}

void WaylandConnection::wake() const
{
    const quint64 once = 1;
    static_cast<void>(::write(m_wake, &once, sizeof once) > 0);
}

bool WaylandConnection::isLost() const
{
    auto *const queue = wl_display_create_queue(m_display);
    const bool isLost = wl_display_roundtrip_queue(m_display, queue) < 0;
    wl_event_queue_destroy(queue);
    return isLost;
}

void WaylandConnection::handleMessage(QtMsgType type,
                                      const QMessageLogContext &context,
                                      const QString &text)
{
    if (previousHandler != nullptr)
        previousHandler(type, context, text);
    if (watched != nullptr && watched->isLost())
        watched->m_lost();
}
