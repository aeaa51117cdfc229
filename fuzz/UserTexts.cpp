// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfigCoding.h"
#include "Fuzzing.h"
#include "PromptLibrary.h"
#include "Text.h"

void fuzz(const QByteArray &input)
{
    const auto text = QString::fromUtf8(input);
    AppConfig config;
    config.prompts = {QStringLiteral("own"), {{QStringLiteral("own"), {}, text}}};
    config.personalDictionary.terms = PersonalDictionaryConfig::parse(text);
    const auto &terms = config.personalDictionary.terms;
    for (const auto &term : terms)
        require(!term.isEmpty() && characterCount(term) <= 40 && term == term.trimmed());
    require(terms.size() <= 300 && terms.join(u',').toLower().split(u',').removeDuplicates() == 0);
    require(accepted([&] { return decodeAppConfig(encodeAppConfig(config)); }) == config);
    require(PromptLibrary::selectedPrompt(config.prompts, {}).text == text);
}
