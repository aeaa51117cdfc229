// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include "WaitUntil.h"

#include <QDir>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

QList<QByteArray> DataTest::logLines() const
{
    AppLogger::drain();
    auto lines = m_home.read(u".wrenfold/logs/wrenfold.log"_s).split('\n');
    EXPECT_EQ(lines.takeLast(), QByteArray());
    return lines;
}

uint DataTest::modeOf(const QString &path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(qPrintable(path), &status), 0) << qPrintable(path);
    return status.st_mode & 07777;
}

QStringList DataTest::namesIn(const QString &directory)
{
    return QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                     QDir::Name);
}

void startChild(QProcess &process, const QStringList &arguments)
{
    process.start(QStringLiteral(WRENFOLD_DATA_CHILD), arguments);
    ASSERT_TRUE(process.waitForStarted()) << qPrintable(process.errorString());
}

QByteArray nextLine(QProcess &process)
{
    EXPECT_TRUE(waitUntil([&] { return process.canReadLine(); }));
    return process.readLine().trimmed();
}
