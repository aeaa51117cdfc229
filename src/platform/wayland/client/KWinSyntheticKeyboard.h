// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusedApplication.h"
#include "SyntheticKeyboard.h"

#include <functional>

struct org_kde_kwin_fake_input;
class WaylandConnection;

// Posts the paste chord by KWin's fake input, which is the user's own keyboard to it: same layout,
// same modifiers. KWin offers it to programs whose application entry asks for it.
class KWinSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    // Whether KWin offers it to us.
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    // `typesV` tells whether the key at the V position types one.
    KWinSyntheticKeyboard(WaylandConnection &connection,
                          std::function<bool()> typesV,
                          FocusedApplication::Finder focused);
    ~KWinSyntheticKeyboard() override;

    [[nodiscard]] bool isTrusted() const override { return true; }
    [[nodiscard]] bool isHeldByAnother() override { return m_focused().isKeyboardHeld; }
    [[nodiscard]] std::optional<PasteChord> pasteChordOfFocusedWindow() override;
    [[nodiscard]] bool post(PasteChord chord) override;

private:
    WaylandConnection &m_connection;
    std::function<bool()> m_typesV;
    FocusedApplication::Finder m_focused;
    org_kde_kwin_fake_input *m_input = nullptr;
};
