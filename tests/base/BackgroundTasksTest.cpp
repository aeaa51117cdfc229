// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "BackgroundTasks.h"

#include <atomic>
#include <future>
#include <gtest/gtest.h>

TEST(BackgroundTasks, RunAtTheSameTimeAndAreWaitedFor)
{
    std::atomic<int> ended = 0;
    std::promise<void> first;
    auto firstStarted = first.get_future();
    BackgroundTasks tasks;
    tasks.start([&] {
        firstStarted.wait();
        ++ended;
    });
    tasks.start([&] {
        first.set_value();
        ++ended;
    });
    tasks.waitForDone();
    EXPECT_EQ(ended, 2);
}

TEST(BackgroundTasks, TheDestructorWaitsForEveryTask)
{
    std::atomic<int> ended = 0;
    {
        BackgroundTasks tasks;
        for (int i = 0; i < 100; ++i)
            tasks.start([&ended] { ++ended; });
    }
    EXPECT_EQ(ended, 100);
}
