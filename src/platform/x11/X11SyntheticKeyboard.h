// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SyntheticKeyboard.h"

#include <mutex>

class X11InputConnection;

// Posts the paste chord through the XTEST extension.
class X11SyntheticKeyboard final : public SyntheticKeyboard
{
public:
    explicit X11SyntheticKeyboard(X11InputConnection &input);
    ~X11SyntheticKeyboard() override;

    [[nodiscard]] bool isTrusted() const override;
    [[nodiscard]] PasteChord pasteChordOfFocusedWindow() override;
    [[nodiscard]] bool post(PasteChord chord) override;

private:
    X11InputConnection &m_input;
    std::mutex m_mutex; // one chord at a time
};
