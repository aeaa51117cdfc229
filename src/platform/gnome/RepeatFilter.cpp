// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "RepeatFilter.h"

#include <utility>

using namespace std::chrono_literals;

namespace {

// Repeats come every 30 ms as a rule, each by a process that a busy machine is slow to start.
constexpr auto longestGap = 250ms;
// The same once a key is known to be held: nobody lets go of it and presses it again so soon.
constexpr auto longestGapWhileHeld = 800ms;
// How far the first one may be from the end of the delay.
constexpr auto earliest = -100ms;
constexpr auto latest = 400ms;

} // namespace

bool RepeatFilter::isPress(Time now, const KeyRepeat &repeat)
{
    const auto sinceArrival = now - std::exchange(m_lastArrival, now);
    const auto pastDelay = now - m_lastPress - repeat.delay;
    const bool isFirst = pastDelay > earliest && pastDelay < latest;
    const auto gap = m_isHeld ? longestGapWhileHeld : longestGap;
    m_isHeld = repeat.isOn && (isFirst || sinceArrival < gap);
    if (!m_isHeld)
        m_lastPress = now;
    return !m_isHeld;
}
