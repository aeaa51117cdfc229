// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "LockWatch.h"

using namespace std::chrono_literals;

namespace {

constexpr auto lookInterval = 1000ms;
// A keyboard found held so often in a row has been held for two seconds; an open menu holds it too,
// but for less.
constexpr int longHold = 3;

} // namespace

LockWatch::LockWatch(SessionLock &lock, MainQueue &mainQueue, Callbacks callbacks)
    : m_lock(lock)
    , m_mainQueue(mainQueue)
    , m_callbacks(std::move(callbacks))
{}

void LockWatch::start()
{
    m_lock.start([this](bool isLocked) { handleSession(isLocked); });
}

void LockWatch::watchKeyboard(bool isWanted)
{
    m_isWatchWanted = isWanted;
    update();
}

void LockWatch::handleSession(bool isLocked)
{
    m_isSessionLocked = isLocked;
    m_wasKeyboardHeld = false;
    update();
}

void LockWatch::lookAtKeyboard()
{
    const bool isHeld = m_callbacks.isKeyboardHeld();
    if (!isHeld && m_wasKeyboardHeld)
        m_isSessionLocked = false;
    m_wasKeyboardHeld = isHeld;
    m_heldLooks = isHeld ? m_heldLooks + 1 : 0;
    update();
}

void LockWatch::update()
{
    const bool isLocked = m_isSessionLocked || m_heldLooks >= longHold;
    const bool isWatching = m_isWatchWanted || isLocked;
    if (isWatching && !m_timer)
        m_timer = m_mainQueue.repeatEvery(lookInterval, [this] { lookAtKeyboard(); });
    if (!isWatching) {
        m_heldLooks = 0;
        m_timer.reset();
    }
    if (std::exchange(m_isLocked, isLocked) != isLocked)
        m_callbacks.changed(isLocked);
}
