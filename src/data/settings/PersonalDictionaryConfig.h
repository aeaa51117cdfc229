// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

// The user's terms, sent to the recogniser as hotwords.
struct PersonalDictionaryConfig
{
    // The most terms the list keeps.
    static constexpr qsizetype maxTerms = 300;

    PersonalDictionaryConfig() = default;
    // Stores the normalized terms, never the raw list.
    explicit PersonalDictionaryConfig(const QStringList &terms);

    // The normalized terms found in free text: split at line breaks and at , ， ; ； 、.
    [[nodiscard]] static QStringList parse(const QString &text);
    // Cleaned, without duplicates (compared in lower case, the first spelling wins), the first
    // maxTerms of them.
    [[nodiscard]] static QStringList normalize(const QStringList &terms);

    // As stored: a list read from the file is not cleaned.
    QStringList terms;

    bool operator==(const PersonalDictionaryConfig &) const = default;
};
