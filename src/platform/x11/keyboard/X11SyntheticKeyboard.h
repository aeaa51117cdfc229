// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SyntheticKeyboard.h"
#include "X11KeyboardMap.h"

#include <mutex>
#include <optional>

class X11InputConnection;

// Posts the paste chord through the XTEST extension.
class X11SyntheticKeyboard final : public SyntheticKeyboard
{
public:
    explicit X11SyntheticKeyboard(X11InputConnection &input);
    ~X11SyntheticKeyboard() override;

    [[nodiscard]] bool isTrusted() const override;
    [[nodiscard]] bool isHeldByAnother() override;
    [[nodiscard]] std::optional<PasteChord> pasteChordOfFocusedWindow() override;
    [[nodiscard]] bool post(PasteChord chord) override;

private:
    [[nodiscard]] std::optional<X11KeyboardMap> readMap();

    X11InputConnection &m_input;
    const std::optional<quint8> m_keyboard; // the device that will post
    std::mutex m_mutex; // one chord at a time
    std::optional<X11KeyboardMap> m_map; // what the latest choice of a chord has read, for its keys
};
