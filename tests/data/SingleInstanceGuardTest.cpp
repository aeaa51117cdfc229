// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataTest.h"
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

    const QString m_lockPath = m_home.runtimePath(u"test.lock"_s);
    const QByteArray m_ownID = QByteArray::number(QCoreApplication::applicationPid()) + '\n';
};

} // namespace

TEST_F(SingleInstanceGuardTest, NamesTheFileAfterTheIdentifier)
{
    const std::pair<QString, QString> cases[] = {
        {u"local.wrenfold"_s, u"local.wrenfold.lock"_s},
        {u".wrenfold"_s, u".wrenfold.lock"_s},
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
    SingleInstanceGuard first(u"test"_s);
    EXPECT_EQ(lockContent(), "no file");
    EXPECT_TRUE(first.acquire());
    EXPECT_TRUE(first.acquire());
    EXPECT_EQ(lockContent(), m_ownID);
    EXPECT_EQ(modeOf(m_lockPath), 0600U);
    auto second = std::make_unique<SingleInstanceGuard>(u"test"_s);
    EXPECT_FALSE(second->acquire());
    first.release();
    first.release();
    EXPECT_TRUE(second->acquire());
    EXPECT_FALSE(first.acquire());
    second.reset();
    EXPECT_TRUE(first.acquire());
    EXPECT_EQ(lockContent(), m_ownID);
    const auto acquired = "Single instance lock acquired. path=" + m_lockPath.toUtf8();
    ASSERT_EQ(logLines().size(), 3);
    EXPECT_TRUE(logLines().at(0).contains(" [INFO] "));
    EXPECT_TRUE(logLines().at(0).endsWith(acquired));
}

TEST_F(SingleInstanceGuardTest, OneOfTwentyLaunchedAtOnceRunsAndACrashFreesTheLock)
{
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < 20; ++i)
        startChild(*processes.emplace_back(std::make_unique<QProcess>()), {u"lock"_s});
    QProcess *holder = nullptr;
    for (const auto &process : processes)
        if (nextLine(*process) == "true") {
            EXPECT_EQ(holder, nullptr);
            holder = process.get();
        }
    ASSERT_NE(holder, nullptr);
    SingleInstanceGuard guard(u"test"_s);
    EXPECT_FALSE(guard.acquire());
    EXPECT_EQ(lockContent(), QByteArray::number(holder->processId()) + '\n');
    holder->kill();
    ASSERT_TRUE(holder->waitForFinished());
    EXPECT_TRUE(guard.acquire());
    EXPECT_EQ(lockContent(), m_ownID);
    for (const auto &process : processes) {
        process->closeWriteChannel();
        EXPECT_TRUE(process->state() == QProcess::NotRunning || process->waitForFinished());
    }
}

TEST_F(SingleInstanceGuardTest, AFileThatCannotBeTheLockStopsNobodyAndIsNotTouched)
{
    m_home.write(u"victim"_s, "victim");
    QFile::link(m_home.path(u"victim"_s), m_lockPath);
    EXPECT_TRUE(SingleInstanceGuard(u"test"_s).acquire());
    EXPECT_EQ(m_home.read(u"victim"_s), "victim");
    QFile::remove(m_lockPath);
    ::mkfifo(qPrintable(m_lockPath), 0600);
    EXPECT_TRUE(SingleInstanceGuard(u"test"_s).acquire());
    QFile::remove(m_lockPath);
    ::mkdir(qPrintable(m_lockPath), 0700);
    EXPECT_TRUE(SingleInstanceGuard(u"test"_s).acquire());
    ASSERT_EQ(logLines().size(), 3);
    for (const auto &line : logLines())
        EXPECT_TRUE(line.contains(" [WARN] ")
                    && line.endsWith("Single instance lock could not be opened. path="
                                     + m_lockPath.toUtf8()))
            << line.data();
}
