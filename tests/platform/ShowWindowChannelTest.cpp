// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ShowWindowChannel.h"
#include "TrayHostMonitor.h"
#include "WaitUntil.h"

#include <gtest/gtest.h>

TEST(SessionBus, isDoneWithoutAtOnceWhenThereIsNone)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    EXPECT_LT(millisecondsOf([] {
                  ShowWindowChannel channel;
                  EXPECT_FALSE(channel.post() || channel.observe([] {}));
                  channel.stop();
                  TrayHostMonitor().start([] { FAIL() << "there is no panel"; });
              }),
              500);
}
