// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"

#include <map>
#include <utility>

// A hotkey service whose keys the test presses.
class FakeHotKeyRegistrar final : public HotKeyRegistrar
{
public:
    void setHandler(Handler handler) override
    {
        ++handlersSet;
        m_handler = std::move(handler);
    }

    void setLossHandler(Handler handler) override { m_lost = std::move(handler); }

    int registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers) override
    {
        unregisterHotKey(id);
        if (status == 0)
            registered[id] = {keyCode, modifiers};
        return status;
    }

    void unregisterHotKey(HotKeyId id) override { registered.erase(id); }

    // Presses the combination of this id, if there is one.
    void press(HotKeyId id) const
    {
        if (registered.contains(id) && m_handler)
            m_handler(id);
    }

    // The user takes the combination back.
    void lose(HotKeyId id)
    {
        unregisterHotKey(id);
        m_lost(id);
    }

    int status = 0; // what the next registrations return
    int handlersSet = 0;
    std::map<HotKeyId, std::pair<quint32, quint32>> registered; // key code and modifiers

private:
    Handler m_handler;
    Handler m_lost;
};
