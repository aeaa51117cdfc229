// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ElidedText.h"
#include "InterfaceFont.h"

#include <QFontMetrics>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int width = 200;

QStringList linesOf(const QString &text)
{
    ElidedText elided(text, interfaceFont(14), 4);
    elided.setWidth(50);
    elided.setWidth(width);
    return elided.lines();
}

} // namespace

TEST(ElidedTextTest, EndsItsFourthLineWithAnEllipsisWhereMoreFollows)
{
    const std::pair<QString, QStringList> cases[] = {
        {u"一行"_s, {u"一行"_s}},
        {u"a\nb\nc\nd"_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s}},
        {u"a\r\nb\rc\u2029d\n"_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s}},
        {u"a\r\nb\nc\nd\ne"_s, {u"a"_s, u"b"_s, u"c"_s, u"d…"_s}},
        {u"a\n\n\n\nb"_s, {u"a"_s, u""_s, u""_s, u"…"_s}},
    };
    for (const auto &[text, lines] : cases)
        EXPECT_EQ(linesOf(text), lines) << qPrintable(text);
}

TEST(ElidedTextTest, FillsFourLinesOfALongTextOfAnyScript)
{
    const QStringList cases{u"今天我们讨论，"_s,
                            u"i"_s,
                            u"some words "_s,
                            u"\u200b"_s.repeated(500) + u'x',
                            u"👩‍👩‍👧"_s,
                            u"שלום עולם "_s};
    const QFontMetrics metrics(interfaceFont(14));
    for (const auto &unit : cases) {
        auto text = unit.repeated(2000);
        auto lines = linesOf(text);
        ASSERT_EQ(lines.size(), 4) << qPrintable(unit);
        for (const auto &line : lines)
            EXPECT_NEAR(metrics.horizontalAdvance(line), width - 35, 36) << qPrintable(line);
        EXPECT_TRUE(lines.last().endsWith(u'…')) << qPrintable(lines.last());
        lines.last().chop(1);
        EXPECT_TRUE(text.remove(u' ').startsWith(lines.join(QString()).remove(u' ')));
        EXPECT_FALSE(lines.last().back().isHighSurrogate());
    }
}
