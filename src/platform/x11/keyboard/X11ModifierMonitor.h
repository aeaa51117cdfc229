// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ModifierMonitor.h"

#include <set>

class X11InputConnection;
struct KeyStroke;

// Watches the modifier keys by what the keyboard itself reports. Which modifiers are down is
// computed from the keys, left and right: the display's own state knows no sides, and on some
// layouts the right Alt key sets another modifier.
class X11ModifierMonitor final : public ModifierMonitor
{
public:
    explicit X11ModifierMonitor(X11InputConnection &input);
    ~X11ModifierMonitor() override;

    [[nodiscard]] bool start(Handler handler) override;
    void stop() override;

private:
    void handleStroke(const KeyStroke &stroke);
    [[nodiscard]] quint32 flags() const;

    X11InputConnection &m_input;
    Handler m_handler;
    // Virtual key codes: the keys that are down, and those whose press the handler knows.
    std::set<quint32> m_down;
    std::set<quint32> m_reported;
};
