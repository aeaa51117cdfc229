// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SoakPlan.h"

#include <map>

// How a dictation ended.
enum class SoakOutcome {
    Pasted, // the text is in an editor
    Copied, // the text is on the clipboard, and that was told
    Told, // there is no text to be had here, and that was told
    Cancelled,
    Relaunched,
};

// What was injected in a run and what came of it.
class SoakReport final
{
public:
    void note(SoakFault fault, SoakOutcome outcome) { ++m_counts[fault][int(outcome)]; }
    [[nodiscard]] int dictations() const;
    [[nodiscard]] int faults() const;
    // A row for each fault.
    [[nodiscard]] QString table() const;

private:
    std::map<SoakFault, std::map<int, int>> m_counts;
};
