// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Process.h"
#include "TerminationSignals.h"
#include "WaitUntil.h"

#include <csignal>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TerminationSignals, leaveChildrenAndAnIgnoredHangUpAlone)
{
    std::signal(SIGHUP, SIG_IGN);
    sigset_t blocked;
    sigfillset(&blocked);
    pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    int calls = 0;
    const TerminationSignals termination([&calls] { ++calls; });
    std::raise(SIGHUP);
    EXPECT_FALSE(waitUntil([&calls] { return calls > 0; }, std::chrono::milliseconds(20)));
    pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
    for (const int signal : {SIGTERM, SIGINT})
        EXPECT_EQ(runCommand(u"kill -%1 $$"_s.arg(signal)).exitCode, 128 + signal);
    EXPECT_EQ(calls, 0);
}
