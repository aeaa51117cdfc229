// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"
#include "RepeatFilter.h"

#include <atomic>
#include <memory>
#include <set>

class GnomeKeybindings;
class X11InputConnection;
struct Accelerator;

// Hotkeys by shortcuts in GNOME's settings, which run this program to report a press. Takes
// modifier keys on their own too, left and right apart.
class GnomeHotKeyRegistrar final : public HotKeyRegistrar
{
public:
    // Learns from the input connection which key types what.
    GnomeHotKeyRegistrar(std::unique_ptr<GnomeKeybindings> keybindings, X11InputConnection &input);
    ~GnomeHotKeyRegistrar() override;

    // The handler is never called: every press is reported by another process.
    void setHandler(Handler handler) override;
    [[nodiscard]] int registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers) override;
    void unregisterHotKey(HotKeyId id) override;
    [[nodiscard]] QString takenBy() const override { return m_takenBy; }
    [[nodiscard]] bool acceptsReportedPress(HotKeyId id, RepeatFilter::Time when) override;
    // Whether this key, by the kernel's code, is the hotkey on its own: one that a program presses
    // counts too. Any thread.
    [[nodiscard]] bool isLoneModifier(quint32 kernelCode) const;

private:
    [[nodiscard]] QString ownerOf(const Accelerator &wanted) const;

    std::unique_ptr<GnomeKeybindings> m_keybindings;
    X11InputConnection &m_input;
    std::set<HotKeyId> m_registered;
    QString m_takenBy;
    std::atomic<quint32> m_loneModifier = 0; // the hotkey, by the kernel's code; 0 for another one
    RepeatFilter::Time m_since; // of the hotkey
    RepeatFilter m_filter;
};
