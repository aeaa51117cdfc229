// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusedApplication.h"
#include "SyntheticKeyboard.h"

struct zwp_virtual_keyboard_v1;
class WaylandConnection;
class WaylandKeymap;

// Posts the paste chord from a keyboard of our own, which the compositor keeps apart from the
// user's: what is held down there has no part in it.
class WaylandSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    // Whether the compositor takes in such keyboards.
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    WaylandSyntheticKeyboard(WaylandConnection &connection,
                             const WaylandKeymap &keymap,
                             FocusedApplication::Finder focused);
    ~WaylandSyntheticKeyboard() override;

    [[nodiscard]] bool isTrusted() const override { return true; }
    [[nodiscard]] bool isHeldByAnother() override { return m_focused().isKeyboardHeld; }
    [[nodiscard]] std::optional<PasteChord> pasteChordOfFocusedWindow() override;
    [[nodiscard]] bool post(PasteChord chord) override;

private:
    void setKeymap(const WaylandKeymap &keymap);

    WaylandConnection &m_connection;
    FocusedApplication::Finder m_focused;
    zwp_virtual_keyboard_v1 *m_keyboard = nullptr;
};
