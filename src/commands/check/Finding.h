// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What was found out about one thing that a dictation uses.
struct Finding
{
    enum class Verdict {
        Works,
        Limited, // a dictation works all the same
        Fails,
    };

    Verdict verdict = Verdict::Works;
    QString subject; // a word or two
    QString text; // what is so, in a sentence
    QString remedy; // what to do about it, in a sentence; empty where there is nothing to do
};
