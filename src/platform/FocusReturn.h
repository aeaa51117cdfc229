// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// Remembers which window had the keyboard focus before one of ours took it, and moves the focus.
class FocusReturn
{
public:
    FocusReturn() = default;
    virtual ~FocusReturn();
    FocusReturn(const FocusReturn &) = delete;
    FocusReturn &operator=(const FocusReturn &) = delete;

    // Gives the focus back to that window and returns when it has it, within a second; at once when
    // none of our windows has the focus. False when there is no such window. Any thread but the
    // main one.
    [[nodiscard]] virtual bool returnFocus() = 0;
    // Asks for the focus for the window of ours that had it last, where showing it is not enough.
    // Never waits. Main thread.
    virtual void takeFocus();
};
