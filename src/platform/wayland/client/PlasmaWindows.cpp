// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PlasmaWindows.h"

#include "WaylandConnection.h"
#include "WaylandWindows.h"
#include "plasma-window-management.h"

#include <wayland-client.h>

namespace {

using Manager = org_kde_plasma_window_management;
using Handle = org_kde_plasma_window;
using Window = WaylandWindows::Window;

constexpr quint32 active = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
// The first that names windows by what does not change.
constexpr quint32 version = 13;

void setApplication(void *window, Handle *, const char *name)
{
    static_cast<Window *>(window)->application = name;
}

void setState(void *window, Handle *, quint32 states)
{
    static_cast<Window *>(window)->setActive((states & active) != 0);
}

void remove(void *window, Handle *handle)
{
    org_kde_plasma_window_destroy(handle);
    static_cast<Window *>(window)->remove();
}

void ignoreText(void *, Handle *, const char *) {}
void ignoreEvent(void *, Handle *) {}

void add(void *windows, Manager *manager, quint32, const char *uuid)
{
    static constexpr org_kde_plasma_window_listener listener{
        .title_changed = &ignoreText,
        .app_id_changed = &setApplication,
        .state_changed = &setState,
        .virtual_desktop_changed = [](void *, Handle *, qint32) {},
        .themed_icon_name_changed = &ignoreText,
        .unmapped = &remove,
        .initial_state = &ignoreEvent,
        .parent_window = [](void *, Handle *, Handle *) {},
        .geometry = [](void *, Handle *, qint32, qint32, quint32, quint32) {},
        .icon_changed = &ignoreEvent,
        .pid_changed = [](void *, Handle *, quint32) {},
        .virtual_desktop_entered = &ignoreText,
        .virtual_desktop_left = &ignoreText,
        .application_menu = [](void *, Handle *, const char *, const char *) {},
        .activity_entered = &ignoreText,
        .activity_left = &ignoreText,
        .resource_name_changed = &ignoreText};
    auto *const handle = org_kde_plasma_window_management_get_window_by_uuid(manager, uuid);
    auto &window = static_cast<WaylandWindows *>(windows)->add(
        [handle] { org_kde_plasma_window_set_state(handle, active, active); });
    org_kde_plasma_window_add_listener(handle, &listener, &window);
}

} // namespace

bool PlasmaWindows::isOffered(const WaylandConnection &connection)
{
    return connection.offers(org_kde_plasma_window_management_interface.name);
}

void PlasmaWindows::tell(WaylandConnection &connection, WaylandWindows &windows)
{
    static constexpr org_kde_plasma_window_management_listener listener{
        .show_desktop_changed = [](void *, Manager *, quint32) {},
        .window = [](void *, Manager *, quint32) {},
        .stacking_order_changed = [](void *, Manager *, wl_array *) {},
        .stacking_order_uuid_changed = [](void *, Manager *, const char *) {},
        .window_with_uuid = &add};
    const auto lock = connection.lock();
    org_kde_plasma_window_management_add_listener(
        connection.global<Manager>(org_kde_plasma_window_management_interface, version),
        &listener,
        &windows);
    connection.flush();
}
