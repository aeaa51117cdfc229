// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataTest.h"
#include "SingleInstanceGuard.h"
#include "TemporaryDirectory.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class TemporaryDirectoryTest : public DataTest
{
protected:
    TemporaryDirectoryTest()
    {
        qunsetenv("XDG_RUNTIME_DIR");
        qputenv("TMPDIR", QFile::encodeName(directory(u"shared"_s, 01777)));
    }
    ~TemporaryDirectoryTest() override
    {
        m_savedTmpdir.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_savedTmpdir);
    }

    [[nodiscard]] QString directory(const QString &name, mode_t mode) const
    {
        QDir().mkpath(m_home.path(name));
        ::chmod(qPrintable(m_home.path(name)), mode);
        return m_home.path(name);
    }

    const QByteArray m_savedTmpdir = qgetenv("TMPDIR");
    const QString m_ownFolder = m_home.path(u"shared/wrenfold-%1"_s.arg(::geteuid()));
};

} // namespace

TEST_F(TemporaryDirectoryTest, IsThePrivateOneOfTheEnvironmentElseAFolderInTheSharedOne)
{
    const auto runtime = directory(u"run"_s, 0700);
    const auto own = directory(u"own"_s, 0700);
    const auto shared = m_home.path(u"shared"_s);
    // The runtime directory's mode and path, $TMPDIR, and what comes of them.
    const std::tuple<mode_t, QString, QString, QString> rows[] = {
        {0700, runtime, shared, runtime},
        {0755, runtime, shared, runtime},
        {0770, runtime, shared, m_ownFolder},
        {0707, runtime, own, own},
        {0700, m_home.path(u"missing"_s), shared, m_ownFolder},
        {0700, u"."_s, own + u'/', own},
        {0700, u""_s, shared, m_ownFolder}};
    for (const auto &[mode, path, temporary, expected] : rows) {
        static_cast<void>(directory(u"run"_s, mode));
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(path));
        qputenv("TMPDIR", QFile::encodeName(temporary));
        EXPECT_EQ(temporaryDirectoryPath(), expected) << mode << path.toStdString();
        if (expected == m_ownFolder) {
            EXPECT_EQ(modeOf(m_ownFolder), 0700U);
            ::chmod(qPrintable(m_ownFolder), 0777);
        }
    }
}

TEST_F(TemporaryDirectoryTest, APlantedFolderIsRefusedAndTheGuardStopsNobody)
{
    QFile::link(directory(u"elsewhere"_s, 0700), m_ownFolder);
    EXPECT_EQ(temporaryDirectoryPath(), QString());
    SingleInstanceGuard guard(u"test"_s);
    EXPECT_TRUE(guard.lockURL().isEmpty());
    EXPECT_TRUE(guard.acquire());
    EXPECT_TRUE(namesIn(m_home.path(u"elsewhere"_s)).isEmpty());
    QFile::remove(m_ownFolder);
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a directory to another user";
    const auto runtime = directory(u"run"_s, 0700);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
    ASSERT_EQ(::chown(qPrintable(runtime), 12345, 12345), 0);
    EXPECT_EQ(temporaryDirectoryPath(), m_ownFolder);
    ASSERT_EQ(::chown(qPrintable(m_ownFolder), 12345, 12345), 0);
    EXPECT_EQ(temporaryDirectoryPath(), QString());
}
