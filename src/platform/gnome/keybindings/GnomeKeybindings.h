// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"
#include "KeyRepeat.h"

#include <QString>

#include <functional>

// The shortcuts in the settings of GNOME by which it runs commands: the user's, which are left
// alone, and one of ours for each hotkey, which runs this program. They stay when a process ends.
// An accelerator is a key with modifiers as GTK writes it, "<Super><Shift>0x41". Main thread only.
class GnomeKeybindings
{
public:
    // Whether an accelerator means the one that is looked for.
    using Match = std::function<bool(const QString &accelerator)>;

    GnomeKeybindings() = default;
    virtual ~GnomeKeybindings();
    GnomeKeybindings(const GnomeKeybindings &) = delete;
    GnomeKeybindings &operator=(const GnomeKeybindings &) = delete;

    // Gives the hotkey an accelerator. GNOME follows after about 60 ms, 90 ms for the first one.
    virtual void bind(HotKeyId id, const QString &accelerator) = 0;
    // Takes it away; does nothing when there is none.
    virtual void unbind(HotKeyId id) = 0;
    // Leaves nothing of ours, and returns when that is written.
    virtual void removeAll() = 0;
    // What a shortcut of the desktop or the user with such an accelerator does, in the desktop's
    // words; empty when there is none.
    [[nodiscard]] virtual QString ownerOf(const Match &isSame) const = 0;
    [[nodiscard]] virtual KeyRepeat keyRepeat() const = 0;
};
