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
    for (const auto &name : {u"TERM"_s, u"INT"_s})
        EXPECT_EQ(runProcess(u"sh"_s, {u"-c"_s, u"kill -%1 $$; exit 3"_s.arg(name)}).exitCode, -1);
    EXPECT_EQ(calls, 0);
}
