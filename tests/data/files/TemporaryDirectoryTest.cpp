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

TEST_F(TemporaryDirectoryTest, TheRuntimeDirectoryComesFirstWhenNobodyElseCanWriteThere)
{
    const auto runtime = m_home.path(u"run"_s);
    for (const mode_t mode : {0700U, 0755U, 0770U, 0707U}) {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(directory(u"run"_s, mode)));
        EXPECT_EQ(temporaryDirectoryPath(), (mode & 022) == 0 ? runtime : m_ownFolder) << mode;
    }
    for (const auto &path : {m_home.path(u"missing"_s), u"."_s, u""_s}) {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(path));
        EXPECT_EQ(temporaryDirectoryPath(), m_ownFolder) << path.toStdString();
    }
}

TEST_F(TemporaryDirectoryTest, APrivateTmpdirIsUsedItselfAndASharedOneGetsAFolder)
{
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(temporaryDirectoryPath(), m_ownFolder);
        EXPECT_EQ(modeOf(m_ownFolder), 0700U);
        ::chmod(qPrintable(m_ownFolder), 0777);
    }
    const auto own = directory(u"own"_s, 0700);
    qputenv("TMPDIR", QFile::encodeName(own) + '/');
    EXPECT_EQ(temporaryDirectoryPath(), own);
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
    m_home.write(QDir(m_home.path()).relativeFilePath(m_ownFolder), "a file");
    EXPECT_EQ(temporaryDirectoryPath(), QString());
}

TEST_F(TemporaryDirectoryTest, WhatBelongsToSomeoneElseIsNotUsed)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a directory to another user";
    const uid_t other = 12345;
    const auto runtime = directory(u"run"_s, 0700);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
    ASSERT_EQ(::chown(qPrintable(runtime), other, other), 0);
    EXPECT_EQ(temporaryDirectoryPath(), m_ownFolder);
    ASSERT_EQ(::chown(qPrintable(m_ownFolder), other, other), 0);
    EXPECT_EQ(temporaryDirectoryPath(), QString());
}
