// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "RepeatFilter.h"

#include <utility>

using namespace std::chrono_literals;

namespace {

// Repeats come every 30 ms as a rule, each by a process that the machine may be slow to start.
constexpr auto longestGap = 250ms;
// How far the first one may be from the end of the delay, for the same reason.
constexpr auto earliest = -100ms;
constexpr auto latest = 250ms;

} // namespace

bool RepeatFilter::isPress(Time now, const KeyRepeat &repeat)
{
    const auto sinceArrival = now - std::exchange(m_lastArrival, now);
    const auto pastDelay = now - m_lastPress - repeat.delay;
    const bool isRepeat = sinceArrival < longestGap || (pastDelay > earliest && pastDelay < latest);
    if (repeat.isOn && isRepeat)
        return false;
    m_lastPress = now;
    return true;
}
