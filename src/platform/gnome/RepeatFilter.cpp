// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "RepeatFilter.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace {

// Repeats come every 30 ms as a rule, unless the machine is busy.
constexpr auto longestGap = 250ms;
// The same once a key is known to be held: nobody lets go of it and presses it again so soon.
constexpr auto longestGapWhileHeld = 500ms;
// How far the first one may be from the end of the delay.
constexpr auto earliest = -100ms;
constexpr auto latest = 200ms;

} // namespace

bool RepeatFilter::isPress(Time when, const KeyRepeat &repeat)
{
    const auto sinceLast = when - m_last;
    const auto pastDelay = when - m_lastPress - repeat.delay;
    const bool isFirst = pastDelay > earliest && pastDelay < latest;
    const auto gap = m_isHeld ? longestGapWhileHeld : longestGap;
    m_last = std::max(m_last, when);
    m_isHeld = repeat.isOn && (isFirst || sinceLast < gap);
    if (!m_isHeld)
        m_lastPress = when;
    return !m_isHeld;
}
