// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataTest.h"
#include "Process.h"
#include "SingleInstanceGuard.h"

#include <QCoreApplication>
#include <QFile>

#include <memory>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class SingleInstanceGuardTest : public DataTest
{
protected:
    // A line about the lock, as many times.
    [[nodiscard]] QStringList lines(qsizetype count, const QString &text) const
    {
        return QStringList(count, text + u" path="_s + m_lockPath);
    }

    const QString m_lockPath = m_home.runtimePath(u"词é-e\u0301Ⅳ𠀀-a.b--x--.lock"_s);
    const QString m_identifier = u"词é_e\u0301Ⅳ𠀀 a.b//x😀"_s + QChar(0xd83d);
    SingleInstanceGuard m_guard{m_identifier};
};

TEST_F(SingleInstanceGuardTest, HoldsTheLockUntilReleasedOrDestroyed)
{
    EXPECT_FALSE(QFile::exists(m_lockPath));
    EXPECT_TRUE(m_guard.acquire());
    EXPECT_TRUE(m_guard.acquire());
    QFile file(m_lockPath);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toInt(), QCoreApplication::applicationPid());
    EXPECT_EQ(modeOf(m_lockPath), 0600U);
    file.close();
    EXPECT_FALSE(runCommand(u"ls -l /proc/self/fd"_s).output.contains(".lock"));
    auto second = std::make_unique<SingleInstanceGuard>(m_identifier);
    EXPECT_FALSE(second->acquire());
    m_guard.release();
    m_guard.release();
    EXPECT_TRUE(second->acquire());
    EXPECT_FALSE(m_guard.acquire());
    second.reset();
    EXPECT_TRUE(m_guard.acquire());
    EXPECT_EQ(loggedLines(m_home), lines(3, u"INFO Single instance lock acquired."_s));
}

TEST_F(SingleInstanceGuardTest, AFileThatCannotBeTheLockStopsNobodyAndIsNotTouched)
{
    m_home.write(u"victim"_s, "victim");
    QFile::link(m_home.path(u"victim"_s), m_lockPath);
    EXPECT_TRUE(m_guard.acquire());
    EXPECT_EQ(m_home.read(u"victim"_s), "victim");
    QFile::remove(m_lockPath);
    ::mkfifo(qPrintable(m_lockPath), 0600);
    EXPECT_TRUE(m_guard.acquire());
    EXPECT_EQ(loggedLines(m_home), lines(2, u"WARN Single instance lock could not be opened."_s));
}
