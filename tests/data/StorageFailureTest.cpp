// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "DataTest.h"
#include "HistoryStore.h"
#include "LocalizedError.h"

#include <QFile>
#include <QRandomGenerator>

#include <algorithm>

#include <sys/mount.h>

using namespace Qt::StringLiterals;

namespace {

// A small disk, or a read-only view of the directory itself, mounted on a directory.
class Mount final
{
public:
    enum class Kind { SmallDisk, ReadOnlyView };
    Mount(const QString &directory, Kind kind)
        : m_target(QFile::encodeName(directory))
        , m_isMounted(kind == Kind::SmallDisk ? mount("tmpfs", 0, "size=256k,mode=0755")
                                              : mount(nullptr, MS_BIND)
                              && mount(nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY))
    {}
    ~Mount() { ::umount2(m_isMounted ? m_target.constData() : "", MNT_DETACH); }
    Mount(const Mount &) = delete;
    Mount &operator=(const Mount &) = delete;

    [[nodiscard]] bool isMounted() const { return m_isMounted; }

private:
    [[nodiscard]] bool
    mount(const char *type, unsigned long flags, const char *options = nullptr) const
    {
        return ::mount(m_target.constData(), m_target.constData(), type, flags, options) == 0;
    }

    QByteArray m_target;
    bool m_isMounted;
};

#define SKIP_UNLESS_MOUNTED(mount)                                                                 \
    if (!(mount).isMounted())                                                                      \
    GTEST_SKIP() << "this user has no right to mount a file system"

class StorageFailureTest : public DataTest
{
protected:
    [[nodiscard]] QByteArrayList contents() const
    {
        AppLogger::drain();
        return {m_home.read(u".wrenfold/config.json"_s),
                m_home.read(u".wrenfold/history.json"_s),
                m_home.read(u".wrenfold/logs/wrenfold.log"_s)};
    }

    static void writeEachFileOnce()
    {
        AppConfig::save({});
        HistoryStore().add(u"a"_s, u"b"_s);
        AppLogger::info(u"first"_s);
        AppLogger::drain();
    }

    // Tries to write each file when no write can succeed.
    void expectOldContentIsKept()
    {
        const auto before = contents();
        EXPECT_THROW(AppConfig::save(m_bigConfig), LocalizedError);
        HistoryStore store;
        ASSERT_EQ(store.items().size(), 1);
        store.add(m_bigConfig.polishPrompt, {});
        EXPECT_EQ(store.items().size(), 2);
        AppLogger::info(m_bigConfig.polishPrompt);
        const auto lines = takeSystemLogLines();
        ASSERT_EQ(lines.size(), 2);
        EXPECT_TRUE(lines.at(0).startsWith("Wrenfold history save failed: "_L1));
        EXPECT_TRUE(lines.at(1).startsWith("Wrenfold log write failed: "_L1));
        EXPECT_EQ(AppConfig::loadOrCreateTemplate().config, AppConfig());
        EXPECT_EQ(contents(), before);
        EXPECT_EQ(namesIn(m_directory), u"config.json history.json logs"_s.split(u' '));
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
    const Mount disk(m_home.path(), Mount::Kind::SmallDisk);
    SKIP_UNLESS_MOUNTED(disk);
    writeEachFileOnce();
    QFile filler(m_home.path(u"filler"_s));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(4096, 'f')) > 0) {}
    expectOldContentIsKept();
    filler.remove();
    EXPECT_NO_THROW(AppConfig::save(m_bigConfig));
    AppLogger::info(u"second"_s);
    EXPECT_TRUE(logLines().value(1).endsWith(" second"));
}

TEST_F(StorageFailureTest, AReadOnlyHomeCanBeReadAndIsNotChanged)
{
    {
        const Mount view(m_home.path(), Mount::Kind::ReadOnlyView);
        SKIP_UNLESS_MOUNTED(view);
        EXPECT_THROW(static_cast<void>(AppConfig::loadOrCreateTemplate()), LocalizedError);
        EXPECT_TRUE(HistoryStore().items().isEmpty());
    }
    writeEachFileOnce();
    const Mount view(m_home.path(), Mount::Kind::ReadOnlyView);
    expectOldContentIsKept();
}

TEST_F(StorageFailureTest, AnUnreadableHistoryThatCannotBeMovedAsideIsNotReplaced)
{
    m_home.write(u".wrenfold/history.json"_s, "broken");
    HistoryStore store;
    {
        const Mount view(m_directory, Mount::Kind::ReadOnlyView);
        SKIP_UNLESS_MOUNTED(view);
        store.add(u"a"_s, u"b"_s);
        EXPECT_EQ(takeSystemLogLines().size(), 1);
        EXPECT_EQ(m_home.read(u".wrenfold/history.json"_s), "broken");
    }
    store.add(u"c"_s, u"d"_s);
    EXPECT_EQ(HistoryStore().items().size(), 2);
    EXPECT_EQ(namesIn(m_directory).size(), 2);
}

TEST_F(StorageFailureTest, EveryFileIsWholeWheneverTheProcessIsKilled)
{
    constexpr int kills = 60;
    for (int i = 0; i < kills; ++i) {
        QProcess process;
        startChild(process, {u"save"_s});
        ASSERT_TRUE(process.waitForReadyRead());
        EXPECT_FALSE(process.waitForFinished(QRandomGenerator::global()->bounded(12)));
        process.kill();
        ASSERT_TRUE(process.waitForFinished());

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
    const auto lines = logLines();
    const auto isCut = [](const QByteArray &line) { return !line.endsWith("xxx"); };
    EXPECT_LE(std::ranges::count_if(lines, isCut), kills + 1);
    for (const auto &line : lines)
        EXPECT_TRUE(line.startsWith("20") && line.count('Z') == 1) << line.data();
}
