// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "X11SyntheticKeyboard.h"

#include <memory>

// Pastes into programs of X as on X11, and into those of Wayland by another keyboard.
class XWaylandSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    XWaylandSyntheticKeyboard(X11InputConnection &input,
                              std::unique_ptr<SyntheticKeyboard> beyondX);
    ~XWaylandSyntheticKeyboard() override;

    void requestTrust() override { m_beyondX->requestTrust(); }
    [[nodiscard]] bool isTrusted() const override { return true; }
    [[nodiscard]] bool isHeldByAnother() override { return current().isHeldByAnother(); }
    [[nodiscard]] std::optional<PasteChord> pasteChordOfFocusedWindow() override;
    [[nodiscard]] bool post(PasteChord chord) override { return current().post(chord); }

private:
    // The one for what has the focus now.
    [[nodiscard]] SyntheticKeyboard &current();

    X11InputConnection &m_input;
    X11SyntheticKeyboard m_x11;
    std::unique_ptr<SyntheticKeyboard> m_beyondX;
};
