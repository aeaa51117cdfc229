// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PersonalDictionaryConfig.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PersonalDictionaryConfig, CleansEachTermAndDropsWhatIsTooShort)
{
    const auto cat = u"猫"_s;
    const auto terms =
        u"  多   空格\t词 |Wi-Fi|Vue.js|《三体》|a - b|cafe\u0301|c\u00a0\u2003\u3000d|"
        "e\u200bf\u200d|々〇|⺀⼀|Ⅳ½²|カタカナ ー|日本👍🏽語|X!|ก\u0e33|《》。|"_s
            .split(u'|');
    const auto cleaned =
        u"多 空格 词|WiFi|Vuejs|三体|a  b|cafe|c d|ef|々〇|⺀⼀|Ⅳ½²|カタカナ ー|日本語"_s.split(
            u'|');
    EXPECT_EQ(PersonalDictionaryConfig(terms).terms, cleaned);
    EXPECT_EQ(PersonalDictionaryConfig({u"ab"_s + QChar(0xd83d),
                                        cat,
                                        cat.repeated(45),
                                        u"x"_s.repeated(39) + u" 0123456789"_s,
                                        u"𠀀"_s.repeated(41)})
                  .terms,
              (QStringList{u"ab"_s, cat.repeated(40), u"x"_s.repeated(39), u"𠀀"_s.repeated(40)}));
}

TEST(PersonalDictionaryConfig, ParsesFreeText)
{
    const std::pair<QString, QStringList> cases[] = {
        {u"DeepSeek、Claude Code，Cursor\n\n Kubernetes "_s,
         u"DeepSeek|Claude Code|Cursor|Kubernetes"_s.split(u'|')},
        {u"a1,b2;c3；d4\r\ne5\vf6\fg7\u0085h8\u2028i9\u2029j0"_s,
         u"a1 b2 c3 d4 e5 f6 g7 h8 i9 j0"_s.split(u' ')},
        {u"DeepSeek,deepseek,ÄÖ,äö,DEEPSEEK"_s, {u"DeepSeek"_s, u"ÄÖ"_s}},
        {u"a.b/c:d"_s, {u"abcd"_s}},
        {u""_s, {}},
        {u",，;；、\n!？"_s, {}},
    };
    for (const auto &[text, terms] : cases)
        EXPECT_EQ(PersonalDictionaryConfig::parse(text), terms) << text.toStdString();
}

TEST(PersonalDictionaryConfig, KeepsTheFirstThreeHundred)
{
    QStringList terms;
    for (int i = 0; i < 350; ++i)
        terms.append(u"term%1"_s.arg(i));
    const PersonalDictionaryConfig full(QStringList{u"X!"_s} + terms);
    EXPECT_EQ(full.terms, terms.first(300));
    EXPECT_EQ(PersonalDictionaryConfig(full.terms + QStringList{u"another"_s}), full);
}
