// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>

// What goes wrong in one dictation.
enum class SoakFault {
    None,
    RecognitionRefuses,
    RecognitionAnswersWrongly,
    RecognitionIsSlow,
    RecognitionIsCutOff,
    RecognitionIsSilent,
    PolishingRefuses,
    PolishingAnswersWrongly,
    PolishingIsSlow,
    PolishingIsCutOff,
    PolishingIsSilent,
    SoundStandsStill,
    SoundRestarts,
    LayoutChanges,
    Escape,
    EscapeWhileProcessing,
    DoublePress,
    PressesWhileProcessing,
    ClipboardTaken,
    FocusTaken,
    EditorCloses,
    HistoryReadOnly,
    Killed,
    Quit,
    WindowOpens,
    Count,
};

[[nodiscard]] QString nameOf(SoakFault fault);

// One dictation of a run.
struct SoakStep
{
    int number = 0;
    SoakFault fault = SoakFault::None;
    std::chrono::milliseconds length{}; // from 0.2 to 3 s, short ones more often
    unsigned chance = 0; // what else the fault leaves to chance
    QString spoken; // what is recognised, as no other dictation of the run
    QString written; // what polishing makes of it
};

// The dictations of a run, each drawn from the seed and its own number.
class SoakPlan final
{
public:
    // `faultPercent`: of so many of a hundred something goes wrong.
    SoakPlan(unsigned seed, unsigned faultPercent);

    [[nodiscard]] SoakStep step(int number) const;

private:
    unsigned m_seed;
    unsigned m_faultPercent;
};
