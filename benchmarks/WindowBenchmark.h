// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Results.h"

// Measures the windows, which it builds itself, beside bare Qt widgets with the same content. A
// frame is what is due to be drawn, drawn at once.
class WindowBenchmark final
{
public:
    explicit WindowBenchmark(Results &results);

    // A full transcript history: opened and scrolled.
    void measureHistory();
    // 300 terms that get another width.
    void measureDictionary();
    // A long prompt that is typed into.
    void measurePrompt();
    // The main window built, shown again, and its pages; and built again after it was closed for
    // longer than it is kept.
    void measureWindow();

private:
    void measureReopening();

    Results &m_results;
};
