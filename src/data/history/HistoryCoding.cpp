// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HistoryCoding.h"

#include "JsonCoding.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// 2001-01-01 00:00:00 UTC, in milliseconds of the Unix epoch.
constexpr qint64 referenceDate = 978'307'200'000;
// A date whose milliseconds a double still holds exactly: about 280,000 years either way.
constexpr double maxSeconds = 9e12;

double wholeMilliseconds(const QDateTime &time)
{
    return static_cast<double>(time.toMSecsSinceEpoch() - referenceDate) / 1000;
}

QJsonObject encode(const HistoryItem &item)
{
    return {{"id"_L1, item.id.toString(QUuid::WithoutBraces).toUpper()},
            {"createdAt"_L1, wholeMilliseconds(item.createdAt) + item.createdAtRemainder},
            {"transcript"_L1, item.transcript},
            {"polished"_L1, item.polished}};
}

QUuid decodeID(const JsonObjectReader &reader)
{
    const auto text = reader.text("id"_L1);
    const QUuid id(text);
    // The conversion also takes braces, and answers with a null id when it fails.
    if (id.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) != 0)
        reader.fail("id"_L1, u"a UUID"_s);
    return id;
}

HistoryItem decode(const JsonObjectReader &reader)
{
    const auto seconds = reader.number("createdAt"_L1);
    if (std::abs(seconds) > maxSeconds)
        reader.fail("createdAt"_L1, u"a date"_s);
    const auto time =
        QDateTime::fromMSecsSinceEpoch(referenceDate + std::llround(seconds * 1000), Qt::UTC);
    return {.id = decodeID(reader),
            .createdAt = time,
            .createdAtRemainder = seconds - wholeMilliseconds(time),
            .transcript = reader.text("transcript"_L1),
            .polished = reader.text("polished"_L1)};
}

} // namespace

QByteArray encodeHistory(const QList<HistoryItem> &items)
{
    QJsonArray array;
    for (const auto &item : items)
        array.append(encode(item));
    return prettyPrintedJson(QJsonDocument(array));
}

QList<HistoryItem> decodeHistory(const QByteArray &text)
{
    const auto document = parseJson(text);
    if (!document.isArray())
        throw JsonError(u"The top level is not a list."_s);
    QList<HistoryItem> items;
    const auto readers = jsonObjectReaders(document.array());
    for (const auto &reader : readers)
        items.append(decode(reader));
    return items;
}
