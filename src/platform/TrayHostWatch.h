// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

// Looks out for a desktop panel that has a place for status icons. Qt decides once, at the first
// status icon, how icons are shown: none may be made before a panel is there. Main thread only.
class TrayHostWatch
{
public:
    using Handler = std::function<void()>;

    TrayHostWatch() = default;
    virtual ~TrayHostWatch();
    TrayHostWatch(const TrayHostWatch &) = delete;
    TrayHostWatch &operator=(const TrayHostWatch &) = delete;

    // Calls the handler from the event loop as soon as there is a host, and maybe again for later
    // ones, until the watch is destroyed. The handler must not destroy the watch. Never waits.
    virtual void start(Handler handler) = 0;
};
