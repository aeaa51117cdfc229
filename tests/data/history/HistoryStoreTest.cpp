// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataTest.h"
#include "HistoryStore.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const auto historyFile = u".wrenfold/history.json"_s;
const auto anID = QByteArrayLiteral("12345678-ABCD-4321-8765-0123456789AB");
const auto referenceDate = QDateTime(QDate(2001, 1, 1), QTime(), Qt::UTC);

class HistoryStoreTest : public DataTest
{
protected:
    // What a change leaves in the file.
    QJsonArray storedAfter(HistoryStore &store, const std::function<void()> &change) const
    {
        change();
        store.drain();
        return QJsonDocument::fromJson(m_home.read(historyFile)).array();
    }
    QJsonArray storedAfterAdding(HistoryStore &store) const
    {
        return storedAfter(store, [&] { store.add(u"new"_s, {}); });
    }

    static QByteArray item(const QByteArray &createdAt, const QByteArray &id = anID)
    {
        return R"({"createdAt": )" + createdAt + R"(, "id": ")" + id
            + R"(", "polished": "", "transcript": ")" + createdAt + R"(", "later": 1})";
    }
    void write(const QByteArray &items) { m_home.write(historyFile, '[' + items + ']'); }
};

} // namespace

TEST_F(HistoryStoreTest, KeepsResultsNewestFirstAsGivenAndCreatesNoFileBefore)
{
    HistoryStore store;
    EXPECT_TRUE(store.items().isEmpty());
    EXPECT_TRUE(namesIn(m_home.path()).isEmpty());
    const auto before = QDateTime::currentDateTimeUtc();
    store.add(u" 一/\"1\"\n "_s, u"lone surrogate "_s + QChar(0xd83d));
    const auto object = storedAfterAdding(store).at(1).toObject();
    const auto &first = store.items().at(1);
    EXPECT_EQ(first.transcript, u" 一/\"1\"\n "_s);
    EXPECT_TRUE(first.createdAt >= before && first.createdAt <= QDateTime::currentDateTimeUtc());
    EXPECT_EQ(HistoryStore().items(), store.items());
    EXPECT_EQ(modeOf(m_home.path(historyFile)), 0600U);
    EXPECT_EQ(modeOf(m_directory), 0700U);
    EXPECT_EQ(object.keys(), u"createdAt id polished transcript"_s.split(u' '));
    EXPECT_EQ(object.value("id"_L1).toString(), first.id.toString(QUuid::WithoutBraces).toUpper());
    EXPECT_DOUBLE_EQ(object.value("createdAt"_L1).toDouble() * 1000,
                     static_cast<double>(referenceDate.msecsTo(first.createdAt)));
    EXPECT_TRUE(m_home.read(historyFile).contains(" 一/\\\"1\\\"\\n"));
}

TEST_F(HistoryStoreTest, CopiesALegacyFileAndDropsTheOldestAboveTwoHundred)
{
    QByteArrayList items;
    for (int i = 0; i < 250; ++i)
        items.append(item(QByteArray::number(i)));
    const auto legacy = '[' + items.join(',') + ']';
    m_home.write(u".hush-wire/history.json"_s, legacy);
    HistoryStore store;
    EXPECT_EQ(m_home.read(historyFile), legacy);
    EXPECT_EQ(modeOf(m_home.path(historyFile)), 0600U);
    EXPECT_EQ(store.items().size(), 250);
    EXPECT_EQ(store.items().at(0).createdAt, referenceDate);
    const auto stored = storedAfterAdding(store);
    EXPECT_EQ(stored.size(), 200);
    EXPECT_EQ(stored.first()["transcript"_L1], u"new"_s);
    EXPECT_EQ(stored.last()["transcript"_L1], u"198"_s);
    EXPECT_EQ(m_home.read(u".hush-wire/history.json"_s), legacy);
}

TEST_F(HistoryStoreTest, RemovesEveryItemWithTheIdAndElseRewritesTheFileUnchanged)
{
    write(item("0") + ',' + item("794312345.123456") + ','
          + item("-0.0004", "00000000-0000-0000-0000-000000000000"));
    HistoryStore store;
    const auto remove = [&](const QUuid &id) {
        return storedAfter(store, [&] { store.remove(id); });
    };
    const auto rewritten = remove(QUuid::createUuid());
    EXPECT_EQ(rewritten.at(1)["createdAt"_L1].toDouble(), 794312345.123456);
    EXPECT_EQ(rewritten.at(2)["createdAt"_L1].toDouble(), -0.0004);
    EXPECT_EQ(remove(QUuid::createUuid()), rewritten);
    EXPECT_EQ(remove(QUuid(QString::fromLatin1(anID))).size(), 1);
    EXPECT_EQ(store.items().size(), 1);
}

TEST_F(HistoryStoreTest, MovesAnUnreadableFileAsideBeforeTheFirstSave)
{
    const QByteArrayList cases = QByteArrayList{"7", "["}
        << item("\"2026-01-01\"") << item("1e300") << item("0", "nonsense")
        << item("0", '{' + anID + '}') << item("0") + ", {\"createdAt\": 0}";
    for (const auto &items : cases) {
        write(items);
        const auto content = m_home.read(historyFile);
        HistoryStore store;
        EXPECT_TRUE(store.items().isEmpty()) << content.data();
        EXPECT_EQ(m_home.read(historyFile), content);
        EXPECT_EQ(storedAfterAdding(store).size(), 1);
        EXPECT_EQ(storedAfterAdding(store).size(), 2);
        const auto names = namesIn(m_directory);
        ASSERT_EQ(names.size(), 2);
        EXPECT_TRUE(names.at(1).startsWith("history.unreadable-"_L1));
        EXPECT_EQ(m_home.read(u".wrenfold/"_s + names.at(1)), content);
        QDir(m_directory).removeRecursively();
    }
    // One that is gone by then is no failure; a link whose target is not there is kept.
    write("7");
    HistoryStore store;
    QFile::remove(m_home.path(historyFile));
    EXPECT_EQ(storedAfterAdding(store).size(), 1);
    QFile::remove(m_home.path(historyFile));
    ASSERT_TRUE(QFile::link(u"elsewhere"_s, m_home.path(historyFile)));
    EXPECT_EQ(storedAfterAdding(store).size(), 0);
    EXPECT_EQ(takeSystemLogLines().size(), 2); // tried again in the end
    HistoryStore next;
    EXPECT_EQ(storedAfterAdding(next).size(), 1);
    EXPECT_EQ(QDir(m_directory).entryInfoList({u"*.unreadable-*"_s}, QDir::System).size(), 1);
}
