// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandWindows.h"

#include "AppRuntime.h"
#include "WaylandConnection.h"
#include "wlr-foreign-toplevel-management-unstable-v1.h"

#include <algorithm>
#include <chrono>
#include <span>

#include <wayland-client.h>

using namespace std::chrono_literals;

struct WaylandWindows::Window
{
    WaylandWindows &windows;
    zwlr_foreign_toplevel_handle_v1 *handle;
    QByteArray application;
    bool isActive = false;
    quint64 activation = 0; // which one of all was its latest; 0 before its first
};

bool WaylandWindows::isOffered(const WaylandConnection &connection)
{
    return connection.offers(zwlr_foreign_toplevel_manager_v1_interface.name);
}

WaylandWindows::WaylandWindows(WaylandConnection &connection)
    : m_connection(connection)
{
    if (!isOffered(connection))
        return;
    static constexpr zwlr_foreign_toplevel_manager_v1_listener listener{
        &add, [](void *, zwlr_foreign_toplevel_manager_v1 *) {}};
    const auto lock = connection.lock();
    zwlr_foreign_toplevel_manager_v1_add_listener(
        connection.global<zwlr_foreign_toplevel_manager_v1>(
            zwlr_foreign_toplevel_manager_v1_interface, 3),
        &listener,
        this);
}

WaylandWindows::~WaylandWindows() = default;

FocusedApplication WaylandWindows::focusedApplication()
{
    const auto lock = m_connection.lock();
    const auto *const window = latest(true);
    FocusedApplication application;
    application.isUnknown = window == nullptr || !window->isActive;
    if (!application.isUnknown)
        application.names << window->application;
    return application;
}

bool WaylandWindows::returnFocus()
{
    auto lock = m_connection.lock();
    const auto *const window = latest(false);
    if (window == nullptr)
        return false;
    if (!window->isActive)
        zwlr_foreign_toplevel_handle_v1_activate(window->handle, m_connection.seat());
    m_connection.flush();
    return m_changed.wait_for(
        lock, 1s, [this, window] { return latest(false) == window && window->isActive; });
}

const WaylandWindows::Window *WaylandWindows::latest(bool withOurs) const
{
    const Window *found = nullptr;
    for (const auto &window : m_windows) {
        const bool isOurs = QLatin1StringView(window->application) == AppRuntime::bundleIdentifier;
        if ((withOurs || !isOurs) && window->activation > (found ? found->activation : 0))
            found = window.get();
    }
    return found;
}

void WaylandWindows::add(void *self,
                         zwlr_foreign_toplevel_manager_v1 *,
                         zwlr_foreign_toplevel_handle_v1 *handle)
{
    using Handle = zwlr_foreign_toplevel_handle_v1;
    static constexpr zwlr_foreign_toplevel_handle_v1_listener listener{
        [](void *, Handle *, const char *) {}, // title
        &setApplication,
        [](void *, Handle *, wl_output *) {},
        [](void *, Handle *, wl_output *) {},
        &setState,
        [](void *, Handle *) {},
        &remove,
        [](void *, Handle *, Handle *) {}};
    auto &windows = *static_cast<WaylandWindows *>(self);
    auto &window = windows.m_windows.emplace_back(new Window{windows, handle, {}});
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &listener, window.get());
}

void WaylandWindows::setApplication(void *data, zwlr_foreign_toplevel_handle_v1 *, const char *name)
{
    static_cast<Window *>(data)->application = name;
}

void WaylandWindows::setState(void *data, zwlr_foreign_toplevel_handle_v1 *, wl_array *states)
{
    auto &window = *static_cast<Window *>(data);
    const std::span values(static_cast<const quint32 *>(states->data),
                           states->size / sizeof(quint32));
    const bool isActive =
        std::ranges::find(values, quint32{ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED})
        != values.end();
    if (isActive && !window.isActive)
        window.activation = ++window.windows.m_activations;
    window.isActive = isActive;
    window.windows.m_changed.notify_all();
}

void WaylandWindows::remove(void *data, zwlr_foreign_toplevel_handle_v1 *handle)
{
    auto *const window = static_cast<Window *>(data);
    auto &windows = window->windows;
    zwlr_foreign_toplevel_handle_v1_destroy(handle);
    std::erase_if(windows.m_windows, [window](const auto &other) { return other.get() == window; });
    windows.m_changed.notify_all();
}
