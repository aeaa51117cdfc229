// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <functional>

// Names one of our global hotkeys; registering an id again first gives its old combination back.
enum class HotKeyId {
    Main = 1,
    Escape = 2,
};

// The desktop's global hotkey service. Main thread only.
class HotKeyRegistrar
{
public:
    using Handler = std::function<void(HotKeyId)>;

    HotKeyRegistrar() = default;
    virtual ~HotKeyRegistrar();
    HotKeyRegistrar(const HotKeyRegistrar &) = delete;
    HotKeyRegistrar &operator=(const HotKeyRegistrar &) = delete;

    // Called once for every press of a registered combination, auto-repeat excluded, from the main
    // thread's event loop.
    virtual void setHandler(Handler handler) = 0;
    // Called like it when a combination that registerHotKey() has taken is not ours after all: the
    // user, whom some desktops ask, has refused it or taken it back.
    virtual void setLossHandler(Handler handler);
    // Makes the key with exactly these modifiers ours system-wide. `keyCode` is a stored virtual
    // key code, of which VirtualKey::escape stands for the key that types Escape, `modifiers` a
    // mask of StoredModifier bits. Returns 0, or the display's error code (10: taken by another
    // program; 2: no such key here; -1: no global hotkeys on this display).
    [[nodiscard]] virtual int registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers) = 0;
    // Gives the combination back; does nothing when the id is not registered.
    virtual void unregisterHotKey(HotKeyId id) = 0;
    // Who has the combination that was refused last, in the desktop's words; empty where it does
    // not tell.
    [[nodiscard]] virtual QString takenBy() const;
    // Whether a press that another process reports, as a desktop has it do for a combination, is
    // one: false for the repeats of a key that is held. `when` is when that process was started.
    [[nodiscard]] virtual bool acceptsReportedPress(HotKeyId id,
                                                    std::chrono::steady_clock::time_point when);
};
