// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "FakeSessionLock.h"
#include "LockWatch.h"
#include "VirtualMainQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

class LockWatchTest : public testing::Test
{
protected:
    LockWatchTest() { watch.start(); }

    std::vector<bool> changes() { return std::exchange(told, {}); }

    bool isHeld = false;
    int looks = 0;
    std::vector<bool> told;
    FakeSessionLock session;
    VirtualMainQueue queue;
    LockWatch watch{session,
                    queue,
                    {[this] {
                         ++looks;
                         return isHeld;
                     },
                     [this](bool isLocked) { told.push_back(isLocked); }}};
};

TEST_F(LockWatchTest, aKeyboardHeldForTwoSecondsIsALockUntilItIsFree)
{
    isHeld = true;
    queue.advance(10s);
    EXPECT_EQ(looks, 0) << "nobody wants to know";
    watch.watchKeyboard(true);
    queue.advance(2s); // an open menu
    isHeld = false;
    queue.advance(1s);
    isHeld = true;
    queue.advance(2s);
    EXPECT_THAT(changes(), ElementsAre());
    queue.advance(1s);
    EXPECT_THAT(changes(), ElementsAre(true));
    watch.watchKeyboard(false); // the recording has ended
    queue.advance(60s);
    EXPECT_THAT(changes(), ElementsAre());
    isHeld = false;
    queue.advance(1s);
    EXPECT_THAT(changes(), ElementsAre(false));
    looks = 0;
    queue.advance(60s);
    EXPECT_EQ(looks, 0);
}

TEST_F(LockWatchTest, theSessionsWordHoldsUntilTakenBackOrTheLockerIsGone)
{
    for (const bool isLocked : {true, true, false, false})
        session.tell(isLocked);
    EXPECT_THAT(changes(), ElementsAre(true, false));
    session.tell(true);
    queue.advance(60s); // the locker has yet to start
    isHeld = true;
    queue.advance(60s);
    EXPECT_THAT(changes(), ElementsAre(true));
    isHeld = false;
    queue.advance(1s);
    EXPECT_THAT(changes(), ElementsAre(false));
}

} // namespace
