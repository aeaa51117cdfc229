// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Text.h"

#include <QTextBoundaryFinder>
#include <QUuid>

namespace {

// Moves past at most `limit` clusters and returns how many there were; the finder then stands
// behind the last of them.
qsizetype skipCharacters(QTextBoundaryFinder &finder, qsizetype limit)
{
    qsizetype count = 0;
    while (count < limit && finder.toNextBoundary() != -1)
        ++count;
    return count;
}

} // namespace

qsizetype characterCount(QStringView text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    return skipCharacters(finder, text.size());
}

QString firstCharacters(const QString &text, qsizetype count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    skipCharacters(finder, count);
    const auto end = finder.position();
    return end < 0 ? text : text.left(end);
}

QString newUuidText()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

QLatin1StringView flagText(bool flag)
{
    return flag ? QLatin1StringView("true") : QLatin1StringView("false");
}
