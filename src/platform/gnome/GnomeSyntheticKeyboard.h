// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusedApplication.h"
#include "X11SyntheticKeyboard.h"

// Pastes into X programs as on X11, and into those of Wayland by keys that the compositor presses.
// There, modifiers that the user holds can be neither seen nor lifted.
class GnomeSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    // The finder is asked while a program of Wayland has the focus. A key that is the hotkey, by
    // the kernel's code, is not pressed.
    GnomeSyntheticKeyboard(X11InputConnection &input,
                           FocusedApplication::Finder focused,
                           std::function<bool(quint32 kernelCode)> isHotKey);
    ~GnomeSyntheticKeyboard() override;

    [[nodiscard]] bool isTrusted() const override { return true; }
    [[nodiscard]] bool isHeldByAnother() override;
    [[nodiscard]] std::optional<PasteChord> pasteChordOfFocusedWindow() override;
    [[nodiscard]] bool post(PasteChord chord) override;

private:
    // Whether what has the focus is no program of X.
    [[nodiscard]] bool isBeyondX();
    // The kernel's code of the key that types the symbol.
    [[nodiscard]] std::optional<quint32> keyTyping(quint32 symbol);

    X11InputConnection &m_input;
    X11SyntheticKeyboard m_x11;
    FocusedApplication::Finder m_focused;
    std::function<bool(quint32)> m_isHotKey;
};
