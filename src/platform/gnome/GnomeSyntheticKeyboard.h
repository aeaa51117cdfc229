// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusedApplication.h"
#include "SyntheticKeyboard.h"

#include <functional>

class X11InputConnection;

// Pastes into programs of Wayland by keys that the compositor presses. Modifiers that the user
// holds can be neither seen nor lifted.
class GnomeSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    // Learns from the input connection which key types what. A key that is the hotkey, by the
    // kernel's code, is not pressed.
    GnomeSyntheticKeyboard(X11InputConnection &input,
                           FocusedApplication::Finder focused,
                           std::function<bool(quint32 kernelCode)> isHotKey);
    ~GnomeSyntheticKeyboard() override;

    [[nodiscard]] bool isTrusted() const override { return true; }
    [[nodiscard]] bool isHeldByAnother() override { return false; }
    [[nodiscard]] std::optional<PasteChord> pasteChordOfFocusedWindow() override;
    [[nodiscard]] bool post(PasteChord chord) override;

private:
    // The kernel's code of the key that types the symbol.
    [[nodiscard]] std::optional<quint32> keyTyping(quint32 symbol);

    X11InputConnection &m_input;
    FocusedApplication::Finder m_focused;
    std::function<bool(quint32)> m_isHotKey;
};
