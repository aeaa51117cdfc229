// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusReturn.h"
#include "X11Connection.h"
#include "X11Reach.h"

#include <atomic>

// Follows the active window as the window manager announces it. What has the focus beyond X it does
// not know: there our own window is put away, and the compositor goes back to the one before.
class X11FocusReturn final : public FocusReturn
{
public:
    explicit X11FocusReturn(X11Reach reach = X11Reach::X);
    ~X11FocusReturn() override;

    [[nodiscard]] bool returnFocus() override;

private:
    void handleEvent(const void *event);
    void noteActiveWindow();
    void activate(quint32 window);
    void putAway(quint32 window);
    void tellWindowManager(quint32 window, quint32 message, quint32 value);
    [[nodiscard]] bool waitForFocus(const std::function<bool(quint32 client)> &isRight);
    [[nodiscard]] quint32 focusedWindow();
    [[nodiscard]] bool isThere(quint32 window);

    const X11Reach m_reach;
    X11Connection m_connection;
    quint32 m_ownClient = 0; // what the windows of this application have in common
    quint32 m_activeWindowAtom = 0;
    quint32 m_changeStateAtom = 0;
    std::atomic<quint32> m_previous = 0; // 0 when there is none, or one beyond X
};
