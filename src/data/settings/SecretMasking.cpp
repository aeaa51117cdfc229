// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SecretMasking.h"

#include "LocalizedError.h"

#include <QBitArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString escapedAsJson(const QString &text)
{
    const auto array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.sliced(2, array.size() - 4));
}

// With every character beyond ASCII as \uXXXX, as many servers write JSON.
QString escapedAsAsciiJson(const QString &text)
{
    QString result;
    for (const QChar character : escapedAsJson(text))
        result += character.unicode() < 0x80
            ? QString(character)
            : u"\\u%1"_s.arg(character.unicode(), 4, 16, QLatin1Char('0'));
    return result;
}

// The spellings under which a service may echo a secret, in lower case.
QStringList spellings(const QString &secret)
{
    const auto percentEncoded = QString::fromLatin1(QUrl::toPercentEncoding(secret));
    QStringList all{secret, escapedAsJson(secret), escapedAsAsciiJson(secret), percentEncoded};
    for (auto &spelling : all)
        spelling = spelling.toLower();
    all.removeDuplicates();
    return all;
}

// Marks every run of `text` that also stands in `secret`: runs of at least eight characters, or of
// the whole secret when it is shorter, so that a cut or re-wrapped echo is found too.
void markEchoes(const QString &text, const QString &secret, QBitArray &marks)
{
    const auto runLength = std::min<qsizetype>(8, secret.size());
    if (runLength == 0)
        return;
    QSet<QStringView> runs;
    for (qsizetype i = 0; i + runLength <= secret.size(); ++i)
        runs.insert(QStringView(secret).sliced(i, runLength));
    for (qsizetype i = 0; i + runLength <= text.size(); ++i)
        if (runs.contains(QStringView(text).sliced(i, runLength)))
            marks.fill(true, i, i + runLength);
}

// The text with every marked run replaced by three asterisks.
QString blotOut(const QString &text, const QBitArray &marks)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!marks.testBit(i))
            result += text[i];
        else if (i == 0 || !marks.testBit(i - 1))
            result += "***"_L1;
    }
    return result;
}

} // namespace

QStringList secretsOf(const AppConfig &config)
{
    return {config.volcengine.apiKey,
            config.volcengine.appKey,
            config.volcengine.accessKey,
            config.deepSeek.apiKey};
}

std::exception_ptr withoutSecrets(const std::exception_ptr &error, const QStringList &secrets)
{
    if (!error)
        return error;
    const auto description = localizedDescription(error);
    const auto lowered = description.toLower();
    // Lower-casing may change the length of exotic text; nothing can be aligned then.
    if (lowered.size() != description.size())
        return std::make_exception_ptr(LocalizedError(u"(not shown)"_s));
    QBitArray marks(description.size());
    for (const auto &secret : secrets)
        for (const auto &spelling : spellings(secret.trimmed()))
            markEchoes(lowered, spelling, marks);
    return std::make_exception_ptr(LocalizedError(blotOut(description, marks)));
}
