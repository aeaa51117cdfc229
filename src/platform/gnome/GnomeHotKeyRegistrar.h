// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"
#include "RepeatFilter.h"

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
    [[nodiscard]] bool acceptsReportedPress(HotKeyId id) override;

private:
    [[nodiscard]] QString ownerOf(const Accelerator &wanted) const;

    std::unique_ptr<GnomeKeybindings> m_keybindings;
    X11InputConnection &m_input;
    std::set<HotKeyId> m_registered;
    QString m_takenBy;
    bool m_canRepeat = false; // as modifier keys never do
    RepeatFilter m_filter;
};
