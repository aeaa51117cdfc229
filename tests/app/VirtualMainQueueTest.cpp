// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VirtualMainQueue.h"

#include <atomic>
#include <gtest/gtest.h>
#include <string>
#include <thread>

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
    std::thread::id ranOn;
    std::atomic<bool> hasThrown = false;
    std::thread worker([&] {
        queue.runAndWait([&ranOn] { ranOn = std::this_thread::get_id(); });
        EXPECT_THROW(queue.runAndWait([] { throw 7; }), int);
        hasThrown = true;
    });
    EXPECT_TRUE(queue.runUntil([&] { return hasThrown.load(); }));
    EXPECT_EQ(ranOn, std::this_thread::get_id());
    worker.join();
    worker = std::thread([&] { EXPECT_THROW(queue.runAndWait([] {}), CancelledError); });
    EXPECT_TRUE(queue.waitForWork());
    queue.close();
    worker.join();
}
