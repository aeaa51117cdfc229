// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PortalRemoteKeyboard.h"
#include "SyntheticKeyboard.h"

// Posts the paste chord by a portal. Which application is in front is not known there, so it is
// always the chord that nearly all understand.
class PortalSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    explicit PortalSyntheticKeyboard(PortalRemoteKeyboard::Token token);
    ~PortalSyntheticKeyboard() override;

    void requestTrust() override { m_keyboard.ask(); }
    // The user's refusal is told by post(), so that the text is on the clipboard then.
    [[nodiscard]] bool isTrusted() const override { return true; }
    [[nodiscard]] bool isHeldByAnother() override { return false; }
    // Absent while the desktop asks the user.
    [[nodiscard]] std::optional<PasteChord> pasteChordOfFocusedWindow() override;
    [[nodiscard]] bool post(PasteChord chord) override;

private:
    PortalRemoteKeyboard m_keyboard;
};
