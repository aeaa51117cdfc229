// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "LevelMeter.h"

#include <algorithm>
#include <cmath>

namespace {

std::int64_t square(std::int16_t sample)
{
    return std::int64_t{sample} * sample;
}

} // namespace

void LevelMeter::add(std::span<const std::int16_t> samples)
{
    for (const auto sample : samples) {
        m_sumOfSquares += square(sample) - square(m_window[m_position]);
        m_window[m_position] = sample;
        m_position = (m_position + 1) % m_window.size();
    }
    m_count = std::min(m_count + samples.size(), m_window.size());
}

float LevelMeter::averagePowerDb() const
{
    if (m_sumOfSquares == 0)
        return silenceDb;
    constexpr double fullScale = 32768.0 * 32768.0;
    const double meanSquare = static_cast<double>(m_sumOfSquares) / static_cast<double>(m_count);
    return std::max(silenceDb, static_cast<float>(10.0 * std::log10(meanSquare / fullScale)));
}
