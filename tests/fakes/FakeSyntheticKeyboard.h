// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SyntheticKeyboard.h"

#include <atomic>

// A synthetic keyboard that only counts what it is asked to post.
class FakeSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    [[nodiscard]] bool isTrusted() const override { return trusted; }
    [[nodiscard]] bool isHeldByAnother() override { return isHeld; }
    [[nodiscard]] std::optional<PasteChord> pasteChordOfFocusedWindow() override
    {
        return isHeld ? std::nullopt : std::optional(PasteChord::ControlV);
    }
    [[nodiscard]] bool post(PasteChord) override
    {
        posted += canPost ? 1 : 0;
        return canPost;
    }

    bool trusted = true;
    bool canPost = true;
    std::atomic<bool> isHeld = false;
    std::atomic<int> posted = 0;
};
