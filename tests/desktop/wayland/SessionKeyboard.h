// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Process.h"

#include <vector>

// Fingers on the keyboard of a private Wayland desktop, beside the program under test.
class SessionKeyboard final
{
public:
    SessionKeyboard();
    ~SessionKeyboard();
    SessionKeyboard(const SessionKeyboard &) = delete;
    SessionKeyboard &operator=(const SessionKeyboard &) = delete;

    // Presses the keys, by the kernel's codes, in their order and releases them in reverse. Returns
    // when the compositor has had them.
    void tap(const std::vector<int> &chord);
    // Presses the keys that are positive and releases the others.
    void move(const std::vector<int> &keys);

private:
    void await(const QByteArray &answer);

    BackgroundProcess m_process;
};
