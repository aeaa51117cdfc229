// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandWindows.h"

#include "AppRuntime.h"
#include "ForeignToplevels.h"
#include "PlasmaWindows.h"
#include "WaylandConnection.h"

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

WaylandWindows::WaylandWindows(WaylandConnection &connection)
    : m_connection(connection)
{
    if (ForeignToplevels::isOffered(connection))
        ForeignToplevels::tell(connection, *this);
    else if (PlasmaWindows::isOffered(connection))
        PlasmaWindows::tell(connection, *this);
}

WaylandWindows::~WaylandWindows() = default;

FocusedApplication WaylandWindows::focusedApplication()
{
    const auto lock = m_connection.lock();
    const auto *const window = latest([](bool) { return true; });
    FocusedApplication application;
    application.isUnknown = window == nullptr || !window->isActive;
    if (!application.isUnknown)
        application.names << window->application;
    return application;
}

bool WaylandWindows::returnFocus()
{
    auto lock = m_connection.lock();
    const auto *const window = latest(std::logical_not());
    if (window == nullptr)
        return false;
    if (!window->isActive)
        window->activate();
    m_connection.flush();
    return m_changed.wait_for(lock, 1s, [this, window] {
        return latest(std::logical_not()) == window && window->isActive;
    });
}

void WaylandWindows::takeFocus()
{
    const auto lock = m_connection.lock();
    const auto *const window = latest([](bool isOurs) { return isOurs; });
    if (window == nullptr || window->isActive)
        return;
    window->activate();
    m_connection.flush();
}

const WaylandWindows::Window *
WaylandWindows::latest(const std::function<bool(bool isOurs)> &isWanted) const
{
    const Window *found = nullptr;
    for (const auto &window : m_windows) {
        const bool isOurs = QLatin1StringView(window->application) == AppRuntime::bundleIdentifier;
        if (isWanted(isOurs) && window->activation > (found ? found->activation : 0))
            found = window.get();
    }
    return found;
}

WaylandWindows::Window &WaylandWindows::add(std::function<void()> activate)
{
    return *m_windows.emplace_back(new Window{*this, std::move(activate), {}});
}

void WaylandWindows::Window::setActive(bool isNowActive)
{
    if (isNowActive && !isActive)
        activation = ++windows.m_activations;
    isActive = isNowActive;
    windows.m_changed.notify_all();
}

void WaylandWindows::Window::remove()
{
    auto &all = windows;
    std::erase_if(all.m_windows, [this](const auto &other) { return other.get() == this; });
    all.m_changed.notify_all();
}
