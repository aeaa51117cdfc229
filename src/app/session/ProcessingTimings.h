// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ProcessingFailureStage.h"

#include <QString>

#include <chrono>
#include <optional>

// How long the stages of one dictation took, and the log line that says so.
class ProcessingTimings final
{
public:
    using Clock = std::chrono::steady_clock;

    // Starts the total. `audioBytes` is the size of the recording file.
    explicit ProcessingTimings(quint64 audioBytes);

    // Runs one stage and keeps its duration; a stage that throws has none.
    template<typename Stage>
    auto measure(ProcessingFailureStage stage, const Stage &run);

    // The line for the log; names the failed stage when there is one.
    [[nodiscard]] QString line(std::optional<ProcessingFailureStage> failedStage = {}) const;

private:
    void keep(ProcessingFailureStage stage, Clock::time_point start);

    quint64 m_audioBytes;
    Clock::time_point m_start = Clock::now();
    // Milliseconds, -1 while absent.
    qint64 m_asrMs = -1;
    qint64 m_polishMs = -1;
    qint64 m_pasteMs = -1;
};

template<typename Stage>
auto ProcessingTimings::measure(ProcessingFailureStage stage, const Stage &run)
{
    const auto start = Clock::now();
    if constexpr (std::is_void_v<decltype(run())>) {
        run();
        keep(stage, start);
    } else {
        auto result = run();
        keep(stage, start);
        return result;
    }
}
