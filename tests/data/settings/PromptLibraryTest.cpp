// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PromptLibrary.h"

#include <QCryptographicHash>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PromptLibrary, TheBuiltInPromptsAreExact)
{
    QStringList summaries;
    for (const auto &[id, name, text] : PromptLibrary::allPrompts({})) {
        const auto hash = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
        summaries << QStringList{id, name, QString::fromLatin1(hash.toHex())}.join(u' ');
    }
    const QStringList expected{
        u"builtin.clean 日常整理 3901d913d5e152dfc6400457c530f7ccf34585d4b8ec1a4127ab355425ac7218"_s,
        u"builtin.script 口播文案 8c60e35013143a7e8d07a27a03322788b8240a0b75e15b93d9d2fdacecd69e9a"_s,
        u"builtin.structured 结构化表达 "
        u"7777f108a461594bd8e05db761394b905423ea920fbd5ed150de28a1a16aad5d"_s};
    EXPECT_EQ(summaries, expected);
}

TEST(PromptLibrary, SelectsTheFirstPromptWithExactlyThatIdElseTheFallback)
{
    const PromptDefinition imposter{u"builtin.clean"_s, u"x"_s, u"x"_s};
    const PromptDefinition own{u"custom.A"_s, u"甲"_s, u"a"_s};
    const PromptDefinition twin{u"custom.A"_s, u"乙"_s, u"b"_s};
    PromptSettings settings{u""_s, {imposter, own, twin}};
    EXPECT_EQ(PromptLibrary::allPrompts(settings).sliced(3), settings.customPrompts);
    const PromptDefinition fallback{u"builtin.clean"_s, u"日常整理"_s, u"fallback"_s};
    const std::pair<QString, PromptDefinition> cases[] = {
        {PromptSettings().selectedID, PromptLibrary::cleanPrompt()},
        {u"builtin.script"_s, PromptLibrary::scriptPrompt()},
        {u"builtin.structured"_s, PromptLibrary::structuredPrompt()},
        {u"custom.A"_s, own},
        {u"custom.deleted"_s, fallback},
        {u"Builtin.clean"_s, fallback},
        {u"builtin.clean "_s, fallback},
    };
    for (const auto &[selectedID, expected] : cases) {
        settings.selectedID = selectedID;
        EXPECT_EQ(PromptLibrary::selectedPrompt(settings, u"fallback"_s), expected);
    }
}
