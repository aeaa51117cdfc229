// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SyntheticKeyboard.h"

#include <functional>
#include <vector>

// A synthetic keyboard that only notes what it is asked to post.
class FakeSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    [[nodiscard]] bool isTrusted() const override { return trusted; }
    [[nodiscard]] PasteChord pasteChordOfFocusedWindow() override { return chord; }
    [[nodiscard]] bool post(PasteChord wanted) override
    {
        if (onPost)
            onPost();
        if (canPost)
            posted.push_back(wanted);
        return canPost;
    }

    bool trusted = true;
    bool canPost = true;
    PasteChord chord = PasteChord::ControlV;
    std::function<void()> onPost; // called before each chord, on the posting thread
    std::vector<PasteChord> posted;
};
