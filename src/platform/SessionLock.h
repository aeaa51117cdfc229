// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

// Tells when the user's session is locked and unlocked, by the desktop's own word. Main thread
// only.
class SessionLock
{
public:
    using Handler = std::function<void(bool isLocked)>;

    SessionLock() = default;
    virtual ~SessionLock();
    SessionLock(const SessionLock &) = delete;
    SessionLock &operator=(const SessionLock &) = delete;

    // Calls the handler from the event loop at every change; it may be told the same twice. Where
    // nobody tells, it is never called. Never waits.
    virtual void start(Handler handler) = 0;
};
