// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusReturn.h"
#include "X11Connection.h"

#include <atomic>

// Follows the active window as the window manager announces it.
class X11FocusReturn final : public FocusReturn
{
public:
    X11FocusReturn();
    ~X11FocusReturn() override;

    [[nodiscard]] bool returnFocus() override;

private:
    void handleEvent(const void *event);
    void noteActiveWindow();
    void activate(quint32 window);
    [[nodiscard]] quint32 focusedWindow();
    [[nodiscard]] bool isThere(quint32 window);

    X11Connection m_connection;
    quint32 m_ownClient = 0; // what the windows of this application have in common
    quint32 m_activeWindowAtom = 0;
    std::atomic<quint32> m_previous = 0; // 0 when there is none
};
