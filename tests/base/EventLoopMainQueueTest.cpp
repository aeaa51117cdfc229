// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "BackgroundTasks.h"
#include "EventLoopMainQueue.h"
#include "WaitUntil.h"

#include <atomic>
#include <gtest/gtest.h>
#include <numeric>

using namespace std::chrono_literals;

namespace {

class EventLoopMainQueueTest : public testing::Test
{
protected:
    // Runs the function on another thread while the event loop goes on.
    void runElsewhere(const std::function<void()> &function)
    {
        std::atomic<bool> hasEnded = false;
        m_tasks.start([&] {
            function();
            hasEnded = true;
        });
        EXPECT_TRUE(waitUntil([&] { return hasEnded.load(); }));
    }

    EventLoopMainQueue m_queue;
    BackgroundTasks m_tasks;
    const std::thread::id m_mainThread = std::this_thread::get_id();
};

} // namespace

TEST_F(EventLoopMainQueueTest, WorkRunsLaterOnTheMainThreadInOrderAndAfterItsDelay)
{
    using Clock = std::chrono::steady_clock;
    std::vector<int> ran;
    const auto note = [&](int mark, Clock::time_point notBefore) {
        return [&, mark, notBefore] {
            const bool isRight =
                std::this_thread::get_id() == m_mainThread && Clock::now() >= notBefore;
            ran.push_back(isRight ? mark : -1);
        };
    };
    std::vector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    m_queue.postAfter(160ms, note(1001, Clock::now() + 160ms));
    m_queue.post(note(0, {}));
    EXPECT_TRUE(ran.empty());
    runElsewhere([&] {
        m_queue.postAfter(80ms, note(1000, Clock::now() + 80ms));
        for (int i = 1; i < 1000; ++i)
            m_queue.post(note(i, {}));
    });
    expected.insert(expected.end(), {1000, 1001});
    ASSERT_TRUE(waitUntil([&] { return ran.size() == 1002; }));
    EXPECT_EQ(ran, expected);
}

TEST_F(EventLoopMainQueueTest, RunAndWaitReturnsWhenTheWorkHasRunAndRethrows)
{
    const auto run = [this] {
        std::thread::id ranOn;
        m_queue.runAndWait([&] { ranOn = std::this_thread::get_id(); });
        EXPECT_EQ(ranOn, m_mainThread);
        EXPECT_THROW(m_queue.runAndWait([] { throw 7; }), int);
    };
    run();
    runElsewhere(run);
}

TEST_F(EventLoopMainQueueTest, ClosingDropsWhatIsQueuedAndFailsWhatWaits)
{
    std::atomic<int> started = 0;
    std::atomic<int> ended = 0;
    bool hasRun = false;
    const auto run = [&] { hasRun = true; };
    m_queue.postAfter(0ms, run);
    for (int i = 0; i < 8; ++i)
        m_tasks.start([&] {
            ++started;
            m_queue.post(run);
            EXPECT_THROW(m_queue.runAndWait(run), CancelledError);
            ++ended;
        });
    // The event loop stands still meanwhile, so that nothing can run before the close.
    while (started < 8)
        std::this_thread::yield();
    m_queue.close();
    m_tasks.waitForDone();
    EXPECT_EQ(ended, 8);
    m_queue.post(run);
    m_queue.postAfter(0ms, run);
    EXPECT_FALSE(waitUntil([&] { return hasRun; }, 20ms));
}

TEST_F(EventLoopMainQueueTest, ARepeatingTimerStopsWhenItIsDestroyedByItsOwnWorkToo)
{
    int runs = 0;
    std::unique_ptr<RepeatingTimer> timer;
    timer = m_queue.repeatEvery(2ms, [&] {
        if (++runs == 3)
            timer.reset();
    });
    ASSERT_TRUE(waitUntil([&] { return runs == 3; }));
    EXPECT_FALSE(waitUntil([&] { return runs > 3; }, 20ms));
}
