// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusedApplication.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <vector>

class WaylandConnection;

// The windows of the desktop, as the compositor tells of them. Any thread.
class WaylandWindows final
{
public:
    // A window, for who hears of it from the compositor. Under the connection's lock.
    struct Window
    {
        WaylandWindows &windows;
        std::function<void()> activate; // asks for the focus
        QByteArray application;
        bool isActive = false;
        quint64 activation = 0; // which one of all was its latest; 0 before its first

        void setActive(bool isNowActive);
        void remove();
    };

    // Without any where the compositor tells nobody of them.
    explicit WaylandWindows(WaylandConnection &connection);
    ~WaylandWindows();
    WaylandWindows(const WaylandWindows &) = delete;
    WaylandWindows &operator=(const WaylandWindows &) = delete;

    // Whether somebody holds the keyboard is not known.
    [[nodiscard]] FocusedApplication focusedApplication();
    // Gives the focus to the latest window of another program that had it, and returns when it has
    // it, within a second; at once when it has it already. False when there is none.
    [[nodiscard]] bool returnFocus();
    // Asks for the focus for our latest window that had it, if one is open, and does not wait.
    void takeFocus();

    [[nodiscard]] WaylandConnection &connection() { return m_connection; }
    [[nodiscard]] Window &add(std::function<void()> activate);

private:
    [[nodiscard]] const Window *latest(const std::function<bool(bool isOurs)> &isWanted) const;

    WaylandConnection &m_connection;
    std::vector<std::unique_ptr<Window>> m_windows;
    quint64 m_activations = 0; // so far
    std::condition_variable_any m_changed;
};
