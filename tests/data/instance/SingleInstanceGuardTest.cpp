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

namespace {

class SingleInstanceGuardTest : public DataTest
{
protected:
    [[nodiscard]] QByteArray lockContent() const
    {
        QFile file(m_lockPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    // A line about the lock, as many times.
    [[nodiscard]] QStringList lines(qsizetype count, const QString &text) const
    {
        return QStringList(count, text + u" path="_s + m_lockPath);
    }

    const QString m_lockPath = m_home.runtimePath(u"test.lock"_s);
    const QByteArray m_ownID = QByteArray::number(QCoreApplication::applicationPid()) + '\n';
    SingleInstanceGuard m_guard{u"test"_s};
};

} // namespace

TEST_F(SingleInstanceGuardTest, NamesTheFileAfterTheIdentifier)
{
    const std::pair<QString, QString> cases[] = {
        {u"local.wrenfold"_s, u"local.wrenfold.lock"_s},
        {u"my app/x"_s, u"my-app-x.lock"_s},
        {u"a_b//c"_s, u"a-b--c.lock"_s},
        {u"词é e\u0301Ⅳ𠀀"_s, u"词é-e\u0301Ⅳ𠀀.lock"_s},
        {u"😀"_s + QChar(0xd83d), u"--.lock"_s},
    };
    for (const auto &[identifier, name] : cases)
        EXPECT_EQ(SingleInstanceGuard(identifier).lockURL().toLocalFile(),
                  m_home.runtimePath(name));
}

TEST_F(SingleInstanceGuardTest, HoldsTheLockUntilReleasedOrDestroyed)
{
    EXPECT_EQ(lockContent(), "no file");
    EXPECT_TRUE(m_guard.acquire());
    EXPECT_TRUE(m_guard.acquire());
    EXPECT_EQ(lockContent(), m_ownID);
    EXPECT_EQ(modeOf(m_lockPath), 0600U);
    EXPECT_FALSE(runCommand(u"ls -l /proc/self/fd"_s).output.contains("test.lock"));
    auto second = std::make_unique<SingleInstanceGuard>(u"test"_s);
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
