// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "DataTest.h"
#include "FakeSystemLog.h"
#include "HistoryStore.h"
#include "LocalizedError.h"

#include <QFile>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/mount.h>

using namespace Qt::StringLiterals;

namespace {

// A file system mounted for one test.
class Mount final
{
public:
    Mount(QString target,
          const char *source,
          const char *type,
          unsigned long flags,
          const char *options)
        : m_target(std::move(target))
        , m_isMounted(::mount(source, qPrintable(m_target), type, flags, options) == 0)
    {}
    ~Mount()
    {
        if (m_isMounted)
            ::umount2(qPrintable(m_target), MNT_DETACH);
    }
    Mount(const Mount &) = delete;
    Mount &operator=(const Mount &) = delete;

    [[nodiscard]] bool isMounted() const { return m_isMounted; }
    void makeReadOnly() const
    {
        ASSERT_EQ(
            ::mount(
                nullptr, qPrintable(m_target), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr),
            0);
    }

private:
    QString m_target;
    bool m_isMounted;
};

class StorageFailureTest : public DataTest
{
protected:
    // Writes each file once, then lets every further write fail and checks that nothing is lost.
    void expectOldContentIsKept()
    {
        AppLogger::drain();
        const auto config = m_home.read(u".wrenfold/config.json"_s);
        const auto history = m_home.read(u".wrenfold/history.json"_s);
        const auto log = m_home.read(u".wrenfold/logs/wrenfold.log"_s);
        EXPECT_THROW(AppConfig::save(m_bigConfig), LocalizedError);
        HistoryStore store;
        ASSERT_EQ(store.items().size(), 1);
        store.add(m_bigConfig.polishPrompt, {});
        EXPECT_EQ(store.items().size(), 2);
        AppLogger::info(m_bigConfig.polishPrompt);
        AppLogger::drain();
        const auto lines = FakeSystemLog::takeLines();
        ASSERT_EQ(lines.size(), 2);
        EXPECT_TRUE(lines.at(0).startsWith("Wrenfold: Wrenfold history save failed: "_L1));
        EXPECT_TRUE(lines.at(1).startsWith("Wrenfold: Wrenfold log write failed: "_L1));
        EXPECT_EQ(AppConfig::loadOrCreateTemplate().config, AppConfig());
        EXPECT_EQ(m_home.read(u".wrenfold/config.json"_s), config);
        EXPECT_EQ(m_home.read(u".wrenfold/history.json"_s), history);
        EXPECT_EQ(m_home.read(u".wrenfold/logs/wrenfold.log"_s), log);
        EXPECT_EQ(namesIn(m_directory),
                  (QStringList{u"config.json"_s, u"history.json"_s, u"logs"_s}));
    }

    static void writeEachFileOnce()
    {
        AppConfig::save({});
        HistoryStore().add(u"a"_s, u"b"_s);
        AppLogger::info(u"first"_s);
        AppLogger::drain();
    }

    AppConfig m_bigConfig = [] {
        AppConfig config;
        config.polishPrompt = QString(200'000, u'x');
        return config;
    }();
};

} // namespace

TEST_F(StorageFailureTest, AFullDiskKeepsTheOldFilesAndLaterWritesSucceedAgain)
{
    const Mount disk(m_home.path(), "tmpfs", "tmpfs", 0, "size=256k,mode=0755");
    if (!disk.isMounted())
        GTEST_SKIP() << "no right to mount a small disk: " << std::strerror(errno);
    writeEachFileOnce();
    QFile filler(m_home.path(u"filler"_s));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(4096, 'f')) > 0) {}
    expectOldContentIsKept();
    filler.remove();
    EXPECT_NO_THROW(AppConfig::save(m_bigConfig));
    AppLogger::info(u"second"_s);
    ASSERT_EQ(logLines().size(), 2);
    EXPECT_TRUE(logLines().at(1).endsWith(" second"));
}

TEST_F(StorageFailureTest, AReadOnlyHomeCanBeReadAndIsNotChanged)
{
    writeEachFileOnce();
    const auto home = m_home.path().toLocal8Bit();
    const Mount view(m_home.path(), home.constData(), nullptr, MS_BIND, nullptr);
    if (!view.isMounted())
        GTEST_SKIP() << "no right to mount a read-only view: " << std::strerror(errno);
    view.makeReadOnly();
    expectOldContentIsKept();
}

TEST_F(StorageFailureTest, AReadOnlyEmptyHomeIsReported)
{
    const auto home = m_home.path().toLocal8Bit();
    const Mount view(m_home.path(), home.constData(), nullptr, MS_BIND, nullptr);
    if (!view.isMounted())
        GTEST_SKIP() << "no right to mount a read-only view: " << std::strerror(errno);
    view.makeReadOnly();
    EXPECT_THROW(static_cast<void>(AppConfig::loadOrCreateTemplate()), LocalizedError);
    EXPECT_TRUE(HistoryStore().items().isEmpty());
    AppLogger::info(u"lost"_s);
    AppLogger::drain();
    EXPECT_EQ(FakeSystemLog::takeLines().size(), 1);
}

TEST_F(StorageFailureTest, AnUnreadableHistoryThatCannotBeMovedAsideIsNotReplaced)
{
    m_home.write(u".wrenfold/history.json"_s, "broken");
    const auto home = m_home.path().toLocal8Bit();
    const auto directory = m_directory.toLocal8Bit();
    HistoryStore store;
    {
        const Mount view(m_directory, directory.constData(), nullptr, MS_BIND, nullptr);
        if (!view.isMounted())
            GTEST_SKIP() << "no right to mount a read-only view: " << std::strerror(errno);
        view.makeReadOnly();
        store.add(u"a"_s, u"b"_s);
        EXPECT_EQ(FakeSystemLog::takeLines().size(), 1);
        EXPECT_EQ(m_home.read(u".wrenfold/history.json"_s), "broken");
    }
    store.add(u"c"_s, u"d"_s);
    EXPECT_EQ(HistoryStore().items().size(), 2);
    EXPECT_EQ(namesIn(m_directory).size(), 2);
}

TEST_F(StorageFailureTest, EveryFileIsWholeWheneverTheProcessIsKilled)
{
    for (int i = 0; i < 60; ++i) {
        QProcess process;
        startChild(process, {u"save"_s});
        ASSERT_TRUE(process.waitForReadyRead());
        EXPECT_FALSE(process.waitForFinished(QRandomGenerator::global()->bounded(12)));
        process.kill();
        ASSERT_TRUE(process.waitForFinished());

        const auto [config, createdTemplate] = AppConfig::loadOrCreateTemplate();
        EXPECT_FALSE(createdTemplate);
        const auto letter = config.polishPrompt.at(0);
        EXPECT_TRUE(letter == u'a' || letter == u'b');
        EXPECT_EQ(config.polishPrompt, QString(300'000, letter));
        const auto items = HistoryStore().items();
        ASSERT_FALSE(items.isEmpty());
        for (const auto &item : items)
            EXPECT_EQ(item.transcript, QString(5'000, u'语'));
    }
    // A kill can cut a line short, but no line is glued to another.
    AppLogger::info(u"end"_s);
    const auto lines = logLines();
    EXPECT_LE(std::ranges::count_if(lines, [](const auto &line) { return !line.endsWith("xxx"); }),
              61);
    for (const auto &line : lines)
        EXPECT_TRUE(line.startsWith("20") && line.indexOf('Z') == line.lastIndexOf('Z'))
            << line.data();
    EXPECT_EQ(namesIn(m_directory), (QStringList{u"config.json"_s, u"history.json"_s, u"logs"_s}));
}
