// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ForeignToplevels.h"

#include "WaylandConnection.h"
#include "WaylandWindows.h"
#include "wlr-foreign-toplevel-management-unstable-v1.h"

#include <algorithm>
#include <span>

#include <wayland-client.h>

namespace {

using Handle = zwlr_foreign_toplevel_handle_v1;
using Manager = zwlr_foreign_toplevel_manager_v1;
using Window = WaylandWindows::Window;

void setApplication(void *window, Handle *, const char *name)
{
    static_cast<Window *>(window)->application = name;
}

void setState(void *window, Handle *, wl_array *states)
{
    const std::span values(static_cast<const quint32 *>(states->data),
                           states->size / sizeof(quint32));
    static_cast<Window *>(window)->setActive(
        std::ranges::find(values, quint32{ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED})
        != values.end());
}

void remove(void *window, Handle *handle)
{
    zwlr_foreign_toplevel_handle_v1_destroy(handle);
    static_cast<Window *>(window)->remove();
}

void add(void *self, Manager *, Handle *handle)
{
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
    auto &window = windows.add([handle, &windows] {
        zwlr_foreign_toplevel_handle_v1_activate(handle, windows.connection().seat());
    });
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &listener, &window);
}

} // namespace

bool ForeignToplevels::isOffered(const WaylandConnection &connection)
{
    return connection.offers(zwlr_foreign_toplevel_manager_v1_interface.name);
}

void ForeignToplevels::tell(WaylandConnection &connection, WaylandWindows &windows)
{
    static constexpr zwlr_foreign_toplevel_manager_v1_listener listener{&add,
                                                                        [](void *, Manager *) {}};
    const auto lock = connection.lock();
    zwlr_foreign_toplevel_manager_v1_add_listener(
        connection.global<Manager>(zwlr_foreign_toplevel_manager_v1_interface, 3),
        &listener,
        &windows);
}
