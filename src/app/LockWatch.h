// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainQueue.h"
#include "SessionLock.h"

#include <functional>
#include <memory>

// Knows whether the user can see what is typed: not while the session says it is locked, nor when
// another program has held the keyboard for two seconds, as a screen locker does. Main thread only.
class LockWatch final
{
public:
    struct Callbacks
    {
        // Whether another program holds the keyboard now.
        std::function<bool()> isKeyboardHeld;
        // Called at every change.
        std::function<void(bool isLocked)> changed;
    };

    LockWatch(SessionLock &lock, MainQueue &mainQueue, Callbacks callbacks);

    // Listens to the session from now on.
    void start();
    // Looks at the keyboard too, once a second, until told otherwise.
    void watchKeyboard(bool isWanted);

private:
    void handleSession(bool isLocked);
    void lookAtKeyboard();
    void update();

    SessionLock &m_lock;
    MainQueue &m_mainQueue;
    Callbacks m_callbacks;
    bool m_isWatchWanted = false;
    bool m_isSessionLocked = false;
    // Since the session was locked: a lock that nobody takes back ends when the keyboard is free
    // again.
    bool m_wasKeyboardHeld = false;
    int m_heldLooks = 0; // in a row
    bool m_isLocked = false; // what was last told
    std::unique_ptr<RepeatingTimer> m_timer;
};
