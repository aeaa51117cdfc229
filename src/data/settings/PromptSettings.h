// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

// One polishing prompt. Built-in ids begin with "builtin.", a user's own with "custom.".
struct PromptDefinition
{
    QString id;
    QString name;
    // The system prompt, sent verbatim.
    QString text;

    bool operator==(const PromptDefinition &) const = default;
};

// The user's choice of prompt and own prompts, in the order they were made.
struct PromptSettings
{
    QString selectedID = QStringLiteral("builtin.clean");
    QList<PromptDefinition> customPrompts;

    bool operator==(const PromptSettings &) const = default;
};
