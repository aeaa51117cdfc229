// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PasteChord.h"

#include <optional>

// Posts key events to whichever application has the focus, as if typed. Safe from any thread.
class SyntheticKeyboard
{
public:
    SyntheticKeyboard() = default;
    virtual ~SyntheticKeyboard();
    SyntheticKeyboard(const SyntheticKeyboard &) = delete;
    SyntheticKeyboard &operator=(const SyntheticKeyboard &) = delete;

    // Asks the user, where it is the user that the desktop asks. Never waits. Main thread.
    virtual void requestTrust();
    // Whether the display lets this process post input at all.
    [[nodiscard]] virtual bool isTrusted() const = 0;
    // Whether another program holds the keyboard, as an open menu or a screen locker does: what is
    // typed then does not reach the application in front.
    [[nodiscard]] virtual bool isHeldByAnother() = 0;
    // The chord by which the window that has the focus now pastes; absent while another program
    // holds the keyboard.
    [[nodiscard]] virtual std::optional<PasteChord> pasteChordOfFocusedWindow() = 0;
    // Posts the chord's key-down and key-up events. Modifiers the user holds are waited for at most
    // 100 ms, then lifted around the chord and restored if still held. False when the keys of the
    // chord cannot be had; nothing is typed then.
    [[nodiscard]] virtual bool post(PasteChord chord) = 0;
};
