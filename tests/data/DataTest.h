// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppLogger.h"
#include "TemporaryHome.h"

#include <QProcess>

#include <gtest/gtest.h>

// A private home directory that outlives every line of the log.
class DataTest : public testing::Test
{
protected:
    ~DataTest() override { AppLogger::drain(); }

    // The log's complete lines.
    [[nodiscard]] QList<QByteArray> logLines() const;
    // Permission bits and file names, for comparisons with literals.
    [[nodiscard]] static uint modeOf(const QString &path);
    [[nodiscard]] static QStringList namesIn(const QString &directory);

    TemporaryHome m_home;
    const QString m_directory = m_home.path(QStringLiteral(".wrenfold"));
};

// Starts this folder's helper program; it has started when this returns.
void startChild(QProcess &process, const QStringList &arguments);
// Waits for the next line of its output.
[[nodiscard]] QByteArray nextLine(QProcess &process);
