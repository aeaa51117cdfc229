// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ModifierMonitor.h"

#include <utility>

// A modifier monitor whose events the test sends.
class FakeModifierMonitor final : public ModifierMonitor
{
public:
    bool start(Handler handler) override
    {
        m_handler = std::move(handler);
        return true;
    }

    void stop() override { m_handler = {}; }
    [[nodiscard]] bool isRunning() const { return static_cast<bool>(m_handler); }

    void send(quint32 keyCode, quint32 flags) const
    {
        if (m_handler)
            m_handler({keyCode, flags, {}});
    }

private:
    Handler m_handler;
};
