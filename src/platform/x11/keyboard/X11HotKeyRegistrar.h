// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"
#include "X11Connection.h"
#include "X11ModifierBits.h"

#include <map>
#include <mutex>
#include <optional>
#include <vector>

class X11InputConnection;
class X11KeyboardMap;

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
        quint32 keyCode = 0; // stored, as are the modifiers
        quint32 modifiers = 0;
        // Given back, but its key is still held: kept until the release, so that the key's repeats
        // do not fall into the application in front.
        bool isLeaving = false;

        [[nodiscard]] bool isSameKey(const Grab &other) const
        {
            return key == other.key && modifiers == other.modifiers;
        }
    };

    // A key that is down.
    struct Hold
    {
        std::optional<quint32> latestPress; // the server's time; absent while none came to us
        bool repeats = true; // whether it may have, rather than just been pressed
    };

    // What grabs are made of; changes with the keyboard map.
    struct Keys
    {
        X11ModifierBits bits;
        std::optional<quint8> escape; // the key that types it

        bool operator==(const Keys &) const = default;
    };

    [[nodiscard]] static Keys keysOf(const X11KeyboardMap &map);
    void prepareKeyboard();
    void handleEvent(const void *event);
    void handlePress(quint8 key, quint16 state, quint32 time);
    void handleRelease(quint8 key, quint32 time);
    void watchReleases();
    void noteIfHeld(quint8 key);
    void setHeld(quint8 key, Hold hold);
    void freeKeyboard();
    void yieldKeyboard();
    [[nodiscard]] std::optional<quint8> keyFor(quint32 keyCode) const;
    [[nodiscard]] std::vector<quint32> statesOf(const Grab &combination) const;
    [[nodiscard]] bool isTakenByInputExtension(quint8 key, const std::vector<quint32> &states);
    void updateKeys();
    [[nodiscard]] std::optional<HotKeyId> hotKeyFor(quint8 key, quint16 state) const;
    [[nodiscard]] int grab(const Grab &combination);
    void ungrab(const Grab &combination) const;

    X11InputConnection &m_input;
    X11Connection m_connection;
    int m_keyboardEvent = 0; // the XKB extension's event type
    bool m_hasInputExtension = false;
    Handler m_handler;
    Keys m_keys;
    std::multimap<HotKeyId, Grab> m_grabs;
    std::map<quint8, Hold> m_held; // by key
    // By key, the server's time from which on a press is none of the repeats before its release.
    std::map<quint8, quint32> m_pressableFrom;
    std::mutex m_yieldMutex; // guards what follows
    bool m_isKeyHeld = false;
    bool m_hasYielded = false; // for keys that were posted while it is held
};
