// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Settings of the chat-completion service that polishes. Keys in the file equal the field names.
struct DeepSeekConfig
{
    QString baseURL = QStringLiteral("https://api.deepseek.com");
    QString apiKey;
    QString model = QStringLiteral("deepseek-v4-flash");

    bool operator==(const DeepSeekConfig &) const = default;
};
