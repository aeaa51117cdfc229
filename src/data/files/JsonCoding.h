// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "LocalizedError.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLatin1StringView>

#include <limits>

// JSON text, or a value in it, that is not what its reader needs. Names the key, never the value.
class JsonError final : public LocalizedError
{
public:
    using LocalizedError::LocalizedError;
};

// Parses a document of UTF-8 text. Throws JsonError.
[[nodiscard]] QJsonDocument parseJson(const QByteArray &text);

// The text of every data file: indented, keys sorted at every level, "/" not escaped.
[[nodiscard]] QByteArray prettyPrintedJson(const QJsonDocument &document);

// Reads the fields of one JSON object strictly: a missing key, a null and a value of another type
// are errors that name the key by its whole path.
class JsonObjectReader final
{
public:
    // `path` names the object in errors; empty for the top level.
    explicit JsonObjectReader(const QJsonValue &value, const QString &path = {});

    // Whether the key is there with anything but null.
    [[nodiscard]] bool has(QLatin1StringView key) const;

    [[nodiscard]] QString text(QLatin1StringView key) const;
    [[nodiscard]] bool flag(QLatin1StringView key) const;
    [[nodiscard]] double number(QLatin1StringView key) const;
    // An integral number within the type's range; 49.0 is one.
    template<typename Integer>
    [[nodiscard]] Integer integer(QLatin1StringView key) const
    {
        using Limits = std::numeric_limits<Integer>;
        return static_cast<Integer>(integer(key, Limits::min(), Limits::max()));
    }
    [[nodiscard]] JsonObjectReader object(QLatin1StringView key) const;
    [[nodiscard]] QStringList texts(QLatin1StringView key) const;
    // One reader an element.
    [[nodiscard]] QList<JsonObjectReader> objects(QLatin1StringView key) const;

    [[noreturn]] void fail(QLatin1StringView key, const QString &expectation) const;

private:
    [[nodiscard]] QString pathOf(QLatin1StringView key) const;
    [[nodiscard]] QJsonValue value(QLatin1StringView key, QJsonValue::Type type) const;
    [[nodiscard]] qint64 integer(QLatin1StringView key, qint64 minimum, qint64 maximum) const;

    QJsonObject m_object;
    QString m_path;
};

// One reader for each element of a list of objects; `path` names the list in errors.
[[nodiscard]] QList<JsonObjectReader> jsonObjectReaders(const QJsonArray &array,
                                                        const QString &path = {});
