// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusedApplication.h"

#include <condition_variable>
#include <memory>
#include <vector>

struct wl_array;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;
class WaylandConnection;

// The windows of the desktop, as the compositor tells of them. Any thread.
class WaylandWindows final
{
public:
    // Whether the compositor tells of windows.
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    explicit WaylandWindows(WaylandConnection &connection);
    ~WaylandWindows();
    WaylandWindows(const WaylandWindows &) = delete;
    WaylandWindows &operator=(const WaylandWindows &) = delete;

    // Whether somebody holds the keyboard is not known.
    [[nodiscard]] FocusedApplication focusedApplication();
    // Gives the focus to the latest window of another program that had it, and returns when it has
    // it, within a second; at once when it has it already. False when there is none.
    [[nodiscard]] bool returnFocus();

private:
    struct Window;

    static void
    add(void *self, zwlr_foreign_toplevel_manager_v1 *, zwlr_foreign_toplevel_handle_v1 *handle);
    static void setApplication(void *data, zwlr_foreign_toplevel_handle_v1 *, const char *name);
    static void setState(void *data, zwlr_foreign_toplevel_handle_v1 *, wl_array *states);
    static void remove(void *data, zwlr_foreign_toplevel_handle_v1 *handle);

    [[nodiscard]] const Window *latest(bool withOurs) const;

    WaylandConnection &m_connection;
    std::vector<std::unique_ptr<Window>> m_windows;
    quint64 m_activations = 0; // so far
    std::condition_variable_any m_changed;
};
