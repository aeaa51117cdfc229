// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusReturn.h"
#include "WaylandWindows.h"

// Asks the compositor for the window that had the focus before ours.
class WaylandFocusReturn final : public FocusReturn
{
public:
    explicit WaylandFocusReturn(WaylandWindows &windows);
    ~WaylandFocusReturn() override;

    [[nodiscard]] bool returnFocus() override { return m_windows.returnFocus(); }
    void takeFocus() override { m_windows.takeFocus(); }

private:
    WaylandWindows &m_windows;
};
