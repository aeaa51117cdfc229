// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Text.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Text, CountsAndCutsWhatPeopleSeeAsCharacters)
{
    const std::tuple<QString, qsizetype, QString> cases[] = {
        {u""_s, 0, u""_s},
        {u"a"_s, 1, u"a"_s},
        {u"猫狗鱼"_s, 3, u"猫狗"_s},
        {u"e\u0301e\u0301e\u0301"_s, 3, u"e\u0301e\u0301"_s},
        {u"👍🏽👩‍👩‍👧"_s, 2, u"👍🏽👩‍👩‍👧"_s},
        {u"🇨🇳🇫🇷🇯🇵"_s, 3, u"🇨🇳🇫🇷"_s},
        {u"\r\nx"_s, 2, u"\r\nx"_s},
    };
    for (const auto &[text, count, firstTwo] : cases) {
        EXPECT_EQ(characterCount(text), count) << text.toStdString();
        EXPECT_EQ(firstCharacters(text, 2), firstTwo) << text.toStdString();
        EXPECT_EQ(firstCharacters(text, count + 1), text);
        EXPECT_EQ(firstCharacters(text, 0), QString());
    }
}

TEST(Text, UuidsAreCanonicalAndFresh)
{
    static const QRegularExpression canonical(
        u"\\A[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\z"_s);
    const auto uuid = newUuidText();
    EXPECT_TRUE(canonical.match(uuid).hasMatch()) << uuid.toStdString();
    EXPECT_NE(uuid, newUuidText());
}
