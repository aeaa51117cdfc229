// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PromptLibrary.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Its text is a resource; the line feed that ends the file is not part of it.
PromptDefinition builtInPrompt(QLatin1StringView id, const QString &name)
{
    QFile file(u":/prompts/%1.txt"_s.arg(id));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("A built-in prompt is missing.");
    return {.id = id, .name = name, .text = QString::fromUtf8(file.readAll()).chopped(1)};
}

} // namespace

const PromptDefinition &PromptLibrary::cleanPrompt()
{
    static const auto prompt = builtInPrompt(cleanID, u"日常整理"_s);
    return prompt;
}

const PromptDefinition &PromptLibrary::scriptPrompt()
{
    static const auto prompt = builtInPrompt(scriptID, u"口播文案"_s);
    return prompt;
}

const PromptDefinition &PromptLibrary::structuredPrompt()
{
    static const auto prompt = builtInPrompt(structuredID, u"结构化表达"_s);
    return prompt;
}

const QList<PromptDefinition> &PromptLibrary::builtInPrompts()
{
    static const QList<PromptDefinition> prompts{cleanPrompt(), scriptPrompt(), structuredPrompt()};
    return prompts;
}

QList<PromptDefinition> PromptLibrary::allPrompts(const PromptSettings &settings)
{
    return builtInPrompts() + settings.customPrompts;
}

PromptDefinition PromptLibrary::selectedPrompt(const PromptSettings &settings,
                                               const QString &fallback)
{
    const auto prompts = allPrompts(settings);
    const auto selected = std::ranges::find(prompts, settings.selectedID, &PromptDefinition::id);
    if (selected != prompts.end())
        return *selected;
    return {.id = cleanID, .name = cleanPrompt().name, .text = fallback};
}
