// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "DataTest.h"
#include "HangingDisk.h"
#include "HistoryStore.h"
#include "LocalizedError.h"
#include "Process.h"
#include "WaitUntil.h"

#include <QFile>

#include <algorithm>
#include <csignal>

#include <sys/mount.h>

using namespace Qt::StringLiterals;

namespace {

class StorageFailureTest : public DataTest
{
protected:
    StorageFailureTest() { m_bigConfig.polishPrompt = QString(200'000, u'x'); }
    ~StorageFailureTest() override { ::umount2(qPrintable(m_home.path()), MNT_DETACH); }

    // Puts a small disk on the home directory, or remounts it.
    [[nodiscard]] bool mountDisk(unsigned long flags) const
    {
        const auto home = m_home.path().toUtf8();
        return ::mount("disk", home.data(), "tmpfs", flags, "size=256k,mode=0755") == 0;
    }

    [[nodiscard]] QByteArrayList contents() const
    {
        AppLogger::drain();
        return {m_home.read(u".wrenfold/config.json"_s),
                m_home.read(u".wrenfold/history.json"_s),
                m_home.read(u".wrenfold/logs/wrenfold.log"_s)};
    }

    // Tries to write each file when no write can succeed.
    void expectOldContentIsKept()
    {
        const auto before = contents();
        EXPECT_THROW(AppConfig::save(m_bigConfig), LocalizedError);
        HistoryStore store;
        ASSERT_EQ(store.items().size(), 1);
        store.add(m_bigConfig.polishPrompt, {});
        store.drain();
        EXPECT_EQ(store.items().size(), 2);
        AppLogger::info(m_bigConfig.polishPrompt);
        const auto lines = takeSystemLogLines();
        EXPECT_EQ(lines.filter(u"Wrenfold history save failed: "_s).size(), 2);
        EXPECT_TRUE(lines.value(2).startsWith("Wrenfold log write failed: "_L1));
        EXPECT_EQ(AppConfig::loadOrCreateTemplate().config, AppConfig());
        EXPECT_EQ(contents(), before);
        EXPECT_EQ(namesIn(m_directory), u"config.json history.json logs"_s.split(u' '));
    }

    AppConfig m_bigConfig;
};

} // namespace

TEST_F(StorageFailureTest, AFullOrReadOnlyDiskKeepsTheOldFilesAndTakesLaterWrites)
{
    if (!mountDisk(0))
        GTEST_SKIP() << "this user has no right to mount a file system";
    const unsigned long readOnly = MS_REMOUNT | MS_RDONLY;
    ASSERT_TRUE(mountDisk(readOnly));
    EXPECT_THROW(static_cast<void>(AppConfig::loadOrCreateTemplate()), LocalizedError);
    EXPECT_TRUE(HistoryStore().items().isEmpty());
    ASSERT_TRUE(mountDisk(MS_REMOUNT));
    AppConfig::save({});
    HistoryStore().add(u"a"_s, u"b"_s);
    AppLogger::info(u"first"_s);
    AppLogger::drain();
    ASSERT_TRUE(mountDisk(readOnly));
    expectOldContentIsKept();
    ASSERT_TRUE(mountDisk(MS_REMOUNT));
    QFile filler(m_home.path(u"filler"_s));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(4096, 'f')) > 0) {}
    expectOldContentIsKept();
    filler.remove();
    EXPECT_NO_THROW(AppConfig::save(m_bigConfig));
    AppLogger::info(u"second"_s);
    EXPECT_EQ(loggedLines(m_home), (QStringList{u"INFO first"_s, u"INFO second"_s}));

    // An unreadable history that cannot be moved aside is not replaced.
    m_home.write(u".wrenfold/history.json"_s, "broken");
    ASSERT_TRUE(mountDisk(readOnly));
    HistoryStore store;
    store.add(u"a"_s, u"b"_s);
    store.drain();
    EXPECT_EQ(takeSystemLogLines().size(), 2);
    EXPECT_EQ(contents().at(1), "broken");
    ASSERT_TRUE(mountDisk(MS_REMOUNT));
    store.drain();
    EXPECT_EQ(HistoryStore().items().size(), 1);
    store.add(u"c"_s, u"d"_s);
    store.drain();
    EXPECT_EQ(HistoryStore().items().size(), 2);
    EXPECT_EQ(namesIn(m_directory).size(), 4);
}

TEST_F(StorageFailureTest, ADiskThatHangsHoldsNobodyUpForMoreThanTwoSeconds)
{
    HistoryStore store;
    store.add(u"a"_s, u"b"_s);
    store.drain();
    AppLogger::info(u"first"_s);
    AppLogger::drain();
    {
        const HangingDisk disk(m_directory), logs(m_directory + u"/logs"_s);
        if (!disk.hangs())
            GTEST_SKIP() << "this user has no right to hold up others";
        EXPECT_LT(millisecondsOf([&] { store.add(u"c"_s, u"d"_s); }), 500);
        AppLogger::info(u"second"_s);
        EXPECT_LT(millisecondsOf([&] { store.drain(); }), 3500);
        EXPECT_EQ(takeSystemLogLines(),
                  u"Wrenfold history not saved: the disk does not answer.|"
                  "Wrenfold log not written: the disk does not answer."_s.split(u'|'));
    }
    store.drain();
    EXPECT_EQ(HistoryStore().items(), store.items());
    EXPECT_EQ(loggedLines(m_home), (QStringList{u"INFO first"_s, u"INFO second"_s}));
}

TEST_F(StorageFailureTest, WhatIsReplacedSurvivesAPowerCutAndOnlySettingsHoldUpTheMainThread)
{
    AppConfig::save({});
    HistoryStore().add(u"a"_s, u"b"_s);
    EXPECT_EQ(takeSyncs(), (QStringList{u"config.json main"_s, u"history.json other"_s}));
}

TEST_F(StorageFailureTest, EveryFileIsWholeWheneverTheProcessIsKilled)
{
    const int kills = qEnvironmentVariable("WRENFOLD_KILLS", u"60"_s).toInt();
    for (int i = 0; i < kills; ++i) {
        EXPECT_EQ(runCommand(m_child + u" save"_s).exitCode, 128 + SIGKILL);
        const auto [config, createdTemplate] = AppConfig::loadOrCreateTemplate();
        EXPECT_FALSE(createdTemplate);
        EXPECT_TRUE(config.polishPrompt == QString(100'000, u'a')
                    || config.polishPrompt == QString(100'000, u'b'));
        const auto items = HistoryStore().items();
        EXPECT_FALSE(items.isEmpty());
        for (const auto &item : items)
            EXPECT_EQ(item.transcript, QString(1'000, u'语'));
    }
    EXPECT_EQ(namesIn(m_directory), u"config.json history.json logs"_s.split(u' '));
    // A kill can cut a line short, but no line is glued to another.
    AppLogger::info(u"end"_s);
    const auto lines = contents().at(2).chopped(1).split('\n');
    const auto isCut = [](const QByteArray &line) { return !line.endsWith("xxx"); };
    EXPECT_LE(std::ranges::count_if(lines, isCut), kills + 1);
    for (const auto &line : lines)
        EXPECT_TRUE(line.startsWith("20") && line.count('Z') == 1) << line.data();
}
