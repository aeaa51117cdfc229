// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VirtualMainQueue.h"

#include <gtest/gtest.h>
#include <string>

using namespace std::chrono_literals;

TEST(VirtualMainQueue, runsInOrderOfTimeAndTicksUntilTheTimerIsGone)
{
    VirtualMainQueue queue;
    std::string order;
    queue.postAfter(20ms, [&order] { order += 'c'; });
    queue.post([&queue, &order] {
        order += 'a';
        queue.post([&order] { order += 'b'; });
    });
    auto timer = queue.repeatEvery(30ms, [&order] { order += '.'; });
    queue.runReady();
    EXPECT_EQ(order, "ab");
    queue.advance(90ms);
    EXPECT_EQ(order, "abc...");
    timer.reset();
    queue.advance(1s);
    EXPECT_EQ(order, "abc...");
    EXPECT_EQ(queue.now(), 1090ms);
}

TEST(VirtualMainQueue, workersWaitForTheMainThreadOrAreCancelled)
{
    VirtualMainQueue queue;
    const auto mainThread = std::this_thread::get_id();
    std::thread::id ranOn;
    bool isCancelled = false;
    std::thread worker([&queue, &ranOn, &isCancelled] {
        queue.runAndWait([&ranOn] { ranOn = std::this_thread::get_id(); });
        EXPECT_THROW(queue.runAndWait([] { throw 7; }), int);
        try {
            queue.runAndWait([] {});
        } catch (const CancelledError &) {
            isCancelled = true;
        }
    });
    EXPECT_TRUE(queue.runUntil([&ranOn, mainThread] { return ranOn == mainThread; }));
    EXPECT_TRUE(queue.waitForWork());
    queue.runReady();
    EXPECT_TRUE(queue.waitForWork());
    queue.close();
    worker.join();
    EXPECT_TRUE(isCancelled);
}
