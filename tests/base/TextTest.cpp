// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Text.h"

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
