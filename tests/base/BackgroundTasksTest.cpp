// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "BackgroundTasks.h"

#include <atomic>
#include <future>
#include <gtest/gtest.h>

TEST(BackgroundTasks, RunAtTheSameTimeAndAreWaitedFor)
{
    std::atomic<int> ended = 0;
    std::promise<void> second;
    auto secondStarted = second.get_future();
    {
        BackgroundTasks tasks;
        tasks.start([&] {
            secondStarted.wait();
            ++ended;
        });
        tasks.start([&] { second.set_value(); });
        tasks.waitForDone();
        EXPECT_EQ(ended, 1);
        for (int i = 0; i < 100; ++i)
            tasks.start([&ended] { ++ended; });
    }
    EXPECT_EQ(ended, 101);
}
