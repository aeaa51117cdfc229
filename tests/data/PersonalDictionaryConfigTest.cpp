// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PersonalDictionaryConfig.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PersonalDictionaryConfig, CleansEachTerm)
{
    const auto cat = u"猫"_s;
    const std::pair<QString, QString> cases[] = {
        {u"  多   空格\t词 "_s, u"多 空格 词"_s},
        {u"Wi-Fi"_s, u"WiFi"_s},
        {u"Vue.js"_s, u"Vuejs"_s},
        {u"《三体》"_s, u"三体"_s},
        {u"a - b"_s, u"a  b"_s},
        {u"cafe\u0301"_s, u"cafe"_s},
        {u"a\u00a0\u2003\u3000b"_s, u"a b"_s},
        {u"a\u200bb\u200d"_s, u"ab"_s},
        {u"々〇"_s, u"々〇"_s},
        {u"⺀⼀"_s, u"⺀⼀"_s},
        {u"Ⅳ½²"_s, u"Ⅳ½²"_s},
        {u"カタカナ ー"_s, u"カタカナ ー"_s},
        {u"日本👍🏽語"_s, u"日本語"_s},
        {u"ab"_s + QChar(0xd83d), u"ab"_s},
        {cat, {}},
        {u"X!"_s, {}},
        {u"ก\u0e33"_s, {}},
        {u"《》。"_s, {}},
        {u""_s, {}},
        {cat.repeated(45), cat.repeated(40)},
        {u"x"_s.repeated(39) + u" 0123456789"_s, u"x"_s.repeated(39)},
        {u"𠀀"_s.repeated(41), u"𠀀"_s.repeated(40)},
    };
    for (const auto &[term, cleaned] : cases)
        EXPECT_EQ(PersonalDictionaryConfig({term}).terms,
                  cleaned.isEmpty() ? QStringList() : QStringList{cleaned})
            << term.toStdString();
}

TEST(PersonalDictionaryConfig, ParsesFreeText)
{
    const std::pair<QString, QStringList> cases[] = {
        {u"DeepSeek、Claude Code，Cursor\n\n Kubernetes "_s,
         {u"DeepSeek"_s, u"Claude Code"_s, u"Cursor"_s, u"Kubernetes"_s}},
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
