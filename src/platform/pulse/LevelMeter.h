// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "RecordingFormat.h"

#include <array>
#include <cstdint>
#include <span>

// The loudness of the latest 100 ms of a recording.
class LevelMeter final
{
public:
    void add(std::span<const std::int16_t> samples);
    // 20·log10 of the RMS over full scale (32768): a full-scale sine is -3.01 dBFS, silence -160.
    [[nodiscard]] float averagePowerDb() const;

    static constexpr float silenceDb = -160;

private:
    std::array<std::int16_t, RecordingFormat::sampleRate / 10> m_window{};
    std::size_t m_position = 0;
    std::size_t m_count = 0;
    std::int64_t m_sumOfSquares = 0;
};
