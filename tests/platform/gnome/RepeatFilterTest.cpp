// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "RepeatFilter.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using testing::ElementsAre;

namespace {

// Which of these times is that of a press.
std::vector<milliseconds> pressesOf(const std::vector<milliseconds> &times, const KeyRepeat &repeat)
{
    const RepeatFilter::Time begin(1h);
    RepeatFilter filter;
    std::vector<milliseconds> presses;
    for (const auto time : times)
        if (filter.isPress(begin + time, repeat))
            presses.push_back(time);
    return presses;
}

} // namespace

TEST(RepeatFilter, TellsPressesFromWhatAHeldKeyRepeats)
{
    const KeyRepeat usual{true, 500ms};
    EXPECT_THAT(pressesOf({0ms, 1500ms, 3000ms}, usual), ElementsAre(0ms, 1500ms, 3000ms));
    EXPECT_THAT(pressesOf({0ms, 300ms}, usual), ElementsAre(0ms, 300ms));
    EXPECT_THAT(pressesOf({0ms, 520ms, 550ms, 610ms, 580ms, 1100ms, 1130ms, 1700ms}, usual),
                ElementsAre(0ms, 1700ms));
    EXPECT_THAT(pressesOf({0ms, 20ms, 300ms}, usual), ElementsAre(0ms));
    EXPECT_THAT(pressesOf({0ms, 950ms}, usual), ElementsAre(0ms, 950ms));
    EXPECT_THAT(pressesOf({0ms, 280ms, 310ms, 340ms}, {true, 250ms}), ElementsAre(0ms));
    EXPECT_THAT(pressesOf({0ms, 20ms, 500ms}, {false, 500ms}), ElementsAre(0ms, 20ms, 500ms));
}
