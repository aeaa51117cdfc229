// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PersonalDictionaryConfig.h"

#include "Text.h"

#include <QSet>

#include <algorithm>
#include <optional>

namespace {

constexpr qsizetype minTermLength = 2;
constexpr qsizetype maxTermLength = 40;

bool isSeparator(QChar character)
{
    constexpr QStringView separators = u",，;；、\u0085\u2028\u2029";
    return (character >= u'\n' && character <= u'\r') || separators.contains(character);
}

// Letters and numbers of every script. Han is asked for besides, since its radicals are symbols.
bool isKept(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::script(character) == QChar::Script_Han;
}

// Every run of white space as one blank, and nothing else but what is kept. Two blanks can meet
// where something between them was removed.
QString withoutPunctuation(const QString &term)
{
    QString result;
    result.reserve(term.size());
    bool isInSpace = false;
    const auto scalars = term.toUcs4();
    for (const char32_t character : scalars) {
        const bool isSpace = QChar::isSpace(character);
        if (isSpace && !isInSpace)
            result += u' ';
        else if (!isSpace && isKept(character))
            result += QChar::fromUcs4(character);
        isInSpace = isSpace;
    }
    return result;
}

std::optional<QString> clean(const QString &term)
{
    auto cleaned = withoutPunctuation(term.trimmed()).trimmed();
    if (characterCount(cleaned) < minTermLength)
        return {};
    cleaned = firstCharacters(cleaned, maxTermLength).trimmed();
    return cleaned.isEmpty() ? std::nullopt : std::optional(cleaned);
}

} // namespace

PersonalDictionaryConfig::PersonalDictionaryConfig(const QStringList &rawTerms)
    : terms(normalize(rawTerms))
{}

QStringList PersonalDictionaryConfig::parse(const QString &text)
{
    QStringList pieces;
    auto start = text.cbegin();
    while (start != text.cend()) {
        const auto end = std::find_if(start, text.cend(), isSeparator);
        if (end != start)
            pieces.append(QString(start, end - start));
        start = end == text.cend() ? end : end + 1;
    }
    return normalize(pieces);
}

QStringList PersonalDictionaryConfig::normalize(const QStringList &terms)
{
    QStringList result;
    QSet<QString> seenKeys;
    for (const auto &term : terms) {
        const auto cleaned = clean(term);
        const auto key = cleaned.value_or(QString()).toLower();
        if (!cleaned || seenKeys.contains(key))
            continue;
        seenKeys.insert(key);
        result.append(*cleaned);
        if (result.size() == maxTerms)
            break;
    }
    return result;
}
