// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "LoggedLines.h"

#include <gtest/gtest.h>

// A private home directory that outlives every line of the log.
class DataTest : public testing::Test
{
protected:
    DataTest() { takeSyncs(); }
    ~DataTest() override { AppLogger::drain(); }

    // What went to the system's log since the last call: this program defines syslog(3) itself.
    [[nodiscard]] static QStringList takeSystemLogLines();

    // What fsync(2) was called for since the last call, as "config.json main" for the file that an
    // unfinished write is to become and the thread.
    static QStringList takeSyncs();

    [[nodiscard]] static uint modeOf(const QString &path);
    [[nodiscard]] static QStringList namesIn(const QString &directory);

    // This folder's helper program, as a word of the shell's.
    inline static const QString m_child = QStringLiteral("'" WRENFOLD_DATA_CHILD "'");

    TemporaryHome m_home;
    const QString m_directory = m_home.path(QStringLiteral(".wrenfold"));
};
