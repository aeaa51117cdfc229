// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"
#include "X11Connection.h"
#include "X11ModifierBits.h"

#include <map>
#include <optional>

class X11InputConnection;

// Global hotkeys by passive grabs of the exact modifiers with every combination of lock keys. The
// keyboard itself stays free: what is posted or typed while the hotkey is still held reaches the
// application in front, but for the held key's own repeats.
class X11HotKeyRegistrar final : public HotKeyRegistrar
{
public:
    // Learns from the input connection when a pressed hotkey is released.
    explicit X11HotKeyRegistrar(X11InputConnection &input);
    ~X11HotKeyRegistrar() override;

    void setHandler(Handler handler) override { m_handler = std::move(handler); }
    [[nodiscard]] int registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers) override;
    void unregisterHotKey(HotKeyId id) override;

private:
    struct Grab
    {
        quint8 key = 0;
        quint32 modifiers = 0; // stored bits
        // Given back, but its key is still held: kept until the release, so that the key's repeats
        // do not fall into the application in front.
        bool isLeaving = false;

        [[nodiscard]] bool isSameKey(const Grab &other) const
        {
            return key == other.key && modifiers == other.modifiers;
        }
    };

    void prepareKeyboard();
    void handleEvent(const void *event);
    void handlePress(quint8 key, quint16 state, quint32 time);
    void handleRelease(quint8 key, quint32 time);
    void watchReleases();
    void noteIfHeld(quint8 key);
    void updateModifierBits();
    [[nodiscard]] std::optional<HotKeyId> hotKeyFor(quint8 key, quint16 state) const;
    [[nodiscard]] int grab(const Grab &combination);
    void ungrab(const Grab &combination) const;

    X11InputConnection &m_input;
    X11Connection m_connection;
    int m_keyboardEvent = 0; // the XKB extension's event type
    Handler m_handler;
    X11ModifierBits m_bits;
    std::multimap<HotKeyId, Grab> m_grabs;
    // By key, the server's time of its latest press; absent when that came before the registration.
    std::map<quint8, std::optional<quint32>> m_heldSince;
};
