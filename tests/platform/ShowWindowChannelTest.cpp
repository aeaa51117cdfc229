// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ShowWindowChannel.h"
#include "TrayHostMonitor.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

TEST(SessionBus, isDoneWithoutAtOnceWhenThereIsNone)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    QElapsedTimer timer;
    timer.start();
    ShowWindowChannel channel;
    EXPECT_FALSE(channel.post());
    EXPECT_FALSE(channel.observe([] {}));
    channel.stop();
    TrayHostMonitor monitor;
    monitor.start([] { FAIL() << "there is no panel"; });
    EXPECT_LT(timer.elapsed(), 500);
}
