// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataTest.h"
#include "HushwireError.h"
#include "Process.h"
#include "UrlCatcher.h"
#include "WaitUntil.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>

#include <csignal>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const auto logFile = u".wrenfold/logs/wrenfold.log"_s;
const auto oldFile = u".wrenfold/logs/wrenfold.old.log"_s;

using AppLoggerTest = DataTest;

} // namespace

TEST_F(AppLoggerTest, WritesALineAnEventWithTimeLevelAndProcess)
{
    qputenv("TZ", "Asia/Tokyo");
    ::tzset();
    // A moment whose milliseconds have a zero in front.
    ASSERT_TRUE(waitUntil([] { return QTime::currentTime().msec() < 50; }));
    const auto before = QDateTime::currentDateTimeUtc();
    AppLogger::info(u"Hello %1 世界. a=true"_s);
    AppLogger::error(u"Failed."_s);
    for (const auto &error : {std::make_exception_ptr(HushwireError::pasteFailed(u"坏"_s)),
                              std::make_exception_ptr(std::runtime_error("foreign 坏")),
                              std::make_exception_ptr(7)})
        AppLogger::error(u"Failed."_s, error);
    AppLogger::warning(u"many\nlines"_s);
    EXPECT_EQ(loggedLines(m_home),
              u"INFO Hello %1 世界. a=true|ERROR Failed.|ERROR Failed. error=坏|"
              "ERROR Failed. error=foreign 坏|ERROR Failed. error=unknown error|"
              "WARN many|lines"_s.split(u'|'));
    const auto content = m_home.read(logFile);
    const auto head =
        " [INFO] [pid=" + QByteArray::number(QCoreApplication::applicationPid()) + ']';
    EXPECT_EQ(content.indexOf(head), 24) << content.data();
    const auto time =
        QDateTime::fromString(QString::fromLatin1(content.first(24)), Qt::ISODateWithMs);
    EXPECT_TRUE(time >= before && time <= QDateTime::currentDateTimeUtc()) << content.data();
    EXPECT_EQ(content.at(23), 'Z');
    qunsetenv("TZ");
    ::tzset();
    EXPECT_EQ(modeOf(m_home.path(logFile)), 0600U);
    EXPECT_EQ(modeOf(m_directory), 0700U);
    EXPECT_EQ(modeOf(m_directory + u"/logs"_s), 0700U);
    EXPECT_EQ(AppLogger::logPathDisplay(), u"~/.wrenfold/logs/wrenfold.log"_s);
    EXPECT_EQ(AppLogger::logFileURL().toLocalFile(), m_home.path(logFile));
}

TEST_F(AppLoggerTest, RotatesAFullFileOrTheTargetOfALinkBeforeALineIsAdded)
{
    for (const auto &target : {logFile, u"elsewhere/my.log"_s}) {
        m_home.write(oldFile, "older");
        m_home.write(target, QByteArray(999'999, 'x'));
        ASSERT_TRUE(target == logFile || QFile::link(m_home.path(target), m_home.path(logFile)));
        for (const auto &path : {logFile, oldFile})
            ::chmod(qPrintable(m_home.path(path)), 0644);
        AppLogger::info(u"first"_s);
        AppLogger::drain();
        EXPECT_EQ(m_home.read(oldFile), "older");
        const auto full = m_home.read(target);
        EXPECT_EQ(full.indexOf("x\n20"), 999'998);
        AppLogger::info(u"second"_s);
        EXPECT_EQ(loggedLines(m_home), QStringList{u"INFO second"_s});
        EXPECT_EQ(m_home.read(logFile), m_home.read(target));
        EXPECT_EQ(m_home.read(oldFile), full);
        for (const auto &path : {logFile, oldFile})
            EXPECT_EQ(modeOf(m_home.path(path)), 0600U) << path.toStdString();
        // When the older generation cannot be replaced, the file simply grows.
        QFile::remove(m_home.path(oldFile));
        QDir().mkpath(m_home.path(oldFile));
        m_home.write(target, full);
        AppLogger::info(u"third"_s);
        EXPECT_EQ(loggedLines(m_home).last(), u"INFO third"_s);
        EXPECT_TRUE(m_home.read(target).startsWith(full));
        QDir(m_directory).removeRecursively();
    }
}

TEST_F(AppLoggerTest, ALinkToAnotherUsersFileIsRefused)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a file to another user";
    m_home.write(u"theirs"_s, "theirs");
    ASSERT_EQ(::chown(qPrintable(m_home.path(u"theirs"_s)), 12345, 12345), 0);
    QDir().mkpath(m_directory + u"/logs"_s);
    QFile::link(m_home.path(u"theirs"_s), m_home.path(logFile));
    AppLogger::info(u"lost"_s);
    EXPECT_EQ(takeSystemLogLines().size(), 1);
    EXPECT_EQ(m_home.read(u"theirs"_s), "theirs");
}

TEST_F(AppLoggerTest, TwoLaunchesMayLogOnSeveralThreadsAtOnceAndRotateOnce)
{
    m_home.write(logFile, QByteArray(995'000, 'x') + '\n');
    const auto both = u"%1 log 0 & %1 log 1 && wait $!"_s.arg(m_child);
    const auto shell = runCommand(both);
    EXPECT_EQ(shell.exitCode, 0) << shell.errors.data();
    auto lines = m_home.read(oldFile).split('\n') + m_home.read(logFile).split('\n');
    EXPECT_EQ(lines.removeAll(QByteArray()), 2);
    EXPECT_EQ(lines.takeFirst(), QByteArray(995'000, 'x'));
    QMap<QByteArray, int> next;
    for (const auto &line : std::as_const(lines)) {
        EXPECT_TRUE(line.count(' ') == 5 && line.endsWith(' ' + QByteArray(100, '.')));
        const auto words = line.split(' ');
        EXPECT_EQ(words.value(4).toInt(), next[words.value(3)]++);
    }
    EXPECT_EQ(next.values(), QList<int>(4, 150));
    EXPECT_GT(m_home.read(logFile).size(), 0);
}

TEST_F(AppLoggerTest, AnUncaughtExceptionIsTheLastLineBeforeTheProcessDies)
{
    const std::pair<QString, QString> cases[] = {
        {u"exception"_s, u"std::runtime_error reason=boom"_s},
        {u"thread"_s, u"std::out_of_range reason=range"_s},
        {u"number"_s, u"int reason=no reason"_s},
        {u"terminate"_s, u"none reason=no reason"_s},
    };
    QStringList expected;
    for (const auto &[kind, message] : cases) {
        EXPECT_EQ(runCommand(m_child + u" crash "_s + kind).exitCode, 128 + SIGABRT);
        expected << u"INFO before"_s << u"ERROR Uncaught exception: "_s + message;
    }
    EXPECT_EQ(loggedLines(m_home), expected);
}

TEST_F(AppLoggerTest, LinesLoggedWhileTheProcessEndsAndInAForkedChildArrive)
{
    EXPECT_EQ(runCommand(m_child + u" exit"_s).exitCode, 0);
    EXPECT_EQ(loggedLines(m_home), u"INFO parent|INFO child|INFO late|INFO late"_s.split(u'|'));
}

TEST_F(AppLoggerTest, ABlockedFolderIsNotOpenedAndEachLostLineIsOneInTheSystemLog)
{
    m_home.write(u".wrenfold/logs"_s, "in the way");
    AppLogger::info(u"lost"_s);
    AppLogger::info(u"lost too"_s);
    const auto line =
        u"Wrenfold log write failed: Cannot create the directory %1/logs: File exists."_s;
    EXPECT_EQ(takeSystemLogLines(), QStringList(2, line.arg(m_directory)));
    UrlCatcher fileManager;
    AppLogger::openLogFolder();
    EXPECT_TRUE(fileManager.opened.isEmpty());
    EXPECT_EQ(takeSystemLogLines().size(), 2);
    QFile::remove(m_directory + u"/logs"_s);
    AppLogger::openLogFolder();
    EXPECT_EQ(fileManager.opened, QList{AppLogger::logDirectoryURL()});
    EXPECT_EQ(loggedLines(m_home), QStringList{u"INFO Open log folder requested."_s});
}
