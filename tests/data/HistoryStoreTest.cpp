// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataTest.h"
#include "FakeSystemLog.h"
#include "HistoryStore.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const auto historyFile = u".wrenfold/history.json"_s;
const auto legacyFile = u".hush-wire/history.json"_s;

class HistoryStoreTest : public DataTest
{
protected:
    [[nodiscard]] QJsonArray stored() const
    {
        return QJsonDocument::fromJson(m_home.read(historyFile)).array();
    }

    // A file of that many items, "text 0" first.
    void writeItems(int count)
    {
        QJsonArray items;
        for (int i = 0; i < count; ++i)
            items.append(QJsonObject{{u"id"_s, QUuid::createUuid().toString(QUuid::WithoutBraces)},
                                     {u"createdAt"_s, i},
                                     {u"transcript"_s, u"text %1"_s.arg(i)},
                                     {u"polished"_s, u""_s}});
        m_home.write(historyFile, QJsonDocument(items).toJson());
    }
};

QByteArray item(const QByteArray &createdAt,
                const QByteArray &id = "12345678-ABCD-4321-8765-0123456789AB")
{
    return R"({"createdAt": )" + createdAt + R"(, "id": ")" + id
        + R"(", "polished": "", "transcript": "a", "later": 1})";
}

} // namespace

TEST_F(HistoryStoreTest, IsEmptyWithoutAFileAndCreatesNoneBeforeTheFirstChange)
{
    EXPECT_TRUE(HistoryStore().items().isEmpty());
    EXPECT_TRUE(namesIn(m_home.path()).isEmpty());
}

TEST_F(HistoryStoreTest, KeepsResultsNewestFirstAsGiven)
{
    const auto before = QDateTime::currentDateTimeUtc();
    HistoryStore store;
    const QString loneSurrogate = u"x"_s + QChar(0xd83d);
    store.add(u" 一/\"1\"\n "_s, loneSurrogate);
    store.add({}, {});
    const auto &newest = store.items().at(1);
    EXPECT_EQ(newest.transcript, u" 一/\"1\"\n "_s);
    EXPECT_GE(newest.createdAt, before);
    EXPECT_LE(newest.createdAt, QDateTime::currentDateTimeUtc());
    EXPECT_EQ(HistoryStore().items(), store.items());
    EXPECT_EQ(modeOf(m_home.path(historyFile)), 0600U);
    EXPECT_EQ(modeOf(m_directory), 0700U);
    const auto object = stored().at(1).toObject();
    EXPECT_EQ(object.keys(),
              (QStringList{u"createdAt"_s, u"id"_s, u"polished"_s, u"transcript"_s}));
    EXPECT_EQ(object.value("id"_L1).toString(), newest.id.toString(QUuid::WithoutBraces).toUpper());
    const auto epoch = QDateTime(QDate(2001, 1, 1), QTime(), Qt::UTC);
    EXPECT_DOUBLE_EQ(object.value("createdAt"_L1).toDouble(),
                     static_cast<double>(epoch.msecsTo(newest.createdAt)) / 1000);
    EXPECT_TRUE(m_home.read(historyFile).contains(" 一/\\\"1\\\"\\n"));
}

TEST_F(HistoryStoreTest, DropsTheOldestAboveTwoHundred)
{
    writeItems(250);
    HistoryStore store;
    ASSERT_EQ(store.items().size(), 250);
    EXPECT_EQ(store.items().at(0).createdAt, QDateTime(QDate(2001, 1, 1), QTime(), Qt::UTC));
    store.add(u"new"_s, {});
    ASSERT_EQ(stored().size(), 200);
    EXPECT_EQ(stored().first().toObject().value("transcript"_L1), u"new"_s);
    EXPECT_EQ(stored().last().toObject().value("transcript"_L1), u"text 198"_s);
}

TEST_F(HistoryStoreTest, RemovesEveryItemWithTheIdAndRewritesTheFileUnchangedForAnother)
{
    m_home.write(historyFile,
                 '[' + item("0") + ',' + item("794312345.123456") + ','
                     + item("-0.0004", "00000000-0000-0000-0000-000000000000") + ']');
    HistoryStore store;
    store.remove(QUuid::createUuid());
    EXPECT_EQ(stored().at(1).toObject().value("createdAt"_L1).toDouble(), 794312345.123456);
    EXPECT_EQ(stored().at(2).toObject().value("createdAt"_L1).toDouble(), -0.0004);
    const auto rewritten = m_home.read(historyFile);
    store.remove(QUuid::createUuid());
    EXPECT_EQ(m_home.read(historyFile), rewritten);
    store.remove(QUuid(u"12345678-abcd-4321-8765-0123456789ab"_s));
    EXPECT_EQ(store.items().size(), 1);
    EXPECT_EQ(stored().size(), 1);
}

TEST_F(HistoryStoreTest, CopiesALegacyFileAndLeavesItWhereItIs)
{
    m_home.write(legacyFile, '[' + item("1.5") + ']');
    EXPECT_EQ(HistoryStore().items().size(), 1);
    EXPECT_EQ(m_home.read(historyFile), m_home.read(legacyFile));
    EXPECT_EQ(modeOf(m_directory), 0700U);
    EXPECT_EQ(modeOf(m_home.path(historyFile)), 0600U);
}

TEST_F(HistoryStoreTest, MovesAnUnreadableFileAsideBeforeTheFirstSave)
{
    const QByteArray cases[] = {"",
                                "{}",
                                "[7]",
                                '[' + item("\"2026-01-01\"") + ']',
                                '[' + item("1e300") + ']',
                                '[' + item("0", "{12345678-ABCD-4321-8765-0123456789AB}") + ']',
                                '[' + item("0", "nonsense") + ']',
                                '[' + item("0") + ", {\"createdAt\": 0}]"};
    for (const auto &content : cases) {
        m_home.write(historyFile, content);
        HistoryStore store;
        EXPECT_TRUE(store.items().isEmpty()) << content.toStdString();
        EXPECT_EQ(m_home.read(historyFile), content);
        store.add(u"a"_s, u"b"_s);
        store.add(u"a"_s, u"b"_s);
        EXPECT_EQ(HistoryStore().items(), store.items());
        auto names = namesIn(m_directory);
        ASSERT_EQ(names.size(), 2);
        ASSERT_TRUE(names.at(1).startsWith("history.unreadable-"_L1));
        EXPECT_EQ(m_home.read(u".wrenfold/"_s + names.at(1)), content);
        QDir(m_directory).removeRecursively();
    }
    EXPECT_TRUE(FakeSystemLog::takeLines().isEmpty());
}

TEST_F(HistoryStoreTest, AFailedSaveIsOneLineInTheSystemLogAndTheMemoryKeepsTheChange)
{
    QDir().mkpath(m_home.path(historyFile));
    HistoryStore store;
    store.add(u"a"_s, u"b"_s);
    EXPECT_EQ(store.items().size(), 1);
    const auto lines = FakeSystemLog::takeLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(
        lines.at(0).startsWith("Wrenfold: Wrenfold history save failed: Cannot replace "_L1))
        << qPrintable(lines.at(0));
    EXPECT_EQ(namesIn(m_directory), QStringList{u"history.json"_s});
    QDir().rmdir(m_home.path(historyFile));
    store.add(u"c"_s, u"d"_s);
    EXPECT_EQ(stored().size(), 2);
}
