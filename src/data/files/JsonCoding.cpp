// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "JsonCoding.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString typeName(QJsonValue::Type type)
{
    switch (type) {
    case QJsonValue::Bool:
        return u"true or false"_s;
    case QJsonValue::Double:
        return u"a number"_s;
    case QJsonValue::String:
        return u"a text"_s;
    case QJsonValue::Array:
        return u"a list"_s;
    default:
        return u"an object"_s;
    }
}

[[noreturn]] void failAt(const QString &path, const QString &expectation)
{
    const auto subject = path.isEmpty() ? u"The top level"_s : u"The value of \"%1\""_s.arg(path);
    throw JsonError(u"%1 is not %2."_s.arg(subject, expectation));
}

QString elementPath(const QString &list, qsizetype index)
{
    return u"%1[%2]"_s.arg(list).arg(index);
}

} // namespace

QJsonDocument parseJson(const QByteArray &text)
{
    QJsonParseError error;
    auto document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        throw JsonError(
            u"The text is not JSON: %1 at byte %2."_s.arg(error.errorString()).arg(error.offset));
    return document;
}

QByteArray prettyPrintedJson(const QJsonDocument &document)
{
    return document.toJson(QJsonDocument::Indented);
}

JsonObjectReader::JsonObjectReader(const QJsonValue &value, const QString &path)
    : m_object(value.toObject())
    , m_path(path)
{
    if (!value.isObject())
        failAt(path, typeName(QJsonValue::Object));
}

bool JsonObjectReader::has(QLatin1StringView key) const
{
    const auto found = m_object.value(key);
    return !found.isUndefined() && !found.isNull();
}

QString JsonObjectReader::text(QLatin1StringView key) const
{
    return value(key, QJsonValue::String).toString();
}

bool JsonObjectReader::flag(QLatin1StringView key) const
{
    return value(key, QJsonValue::Bool).toBool();
}

double JsonObjectReader::number(QLatin1StringView key) const
{
    return value(key, QJsonValue::Double).toDouble();
}

JsonObjectReader JsonObjectReader::object(QLatin1StringView key) const
{
    return JsonObjectReader(value(key, QJsonValue::Object), pathOf(key));
}

QStringList JsonObjectReader::texts(QLatin1StringView key) const
{
    QStringList result;
    const auto array = value(key, QJsonValue::Array).toArray();
    for (const auto &element : array) {
        if (!element.isString())
            failAt(elementPath(pathOf(key), result.size()), typeName(QJsonValue::String));
        result.append(element.toString());
    }
    return result;
}

QList<JsonObjectReader> JsonObjectReader::objects(QLatin1StringView key) const
{
    return jsonObjectReaders(value(key, QJsonValue::Array).toArray(), pathOf(key));
}

void JsonObjectReader::fail(QLatin1StringView key, const QString &expectation) const
{
    failAt(pathOf(key), expectation);
}

QString JsonObjectReader::pathOf(QLatin1StringView key) const
{
    return m_path.isEmpty() ? QString(key) : m_path + u'.' + key;
}

QJsonValue JsonObjectReader::value(QLatin1StringView key, QJsonValue::Type type) const
{
    auto found = m_object.value(key);
    if (found.isUndefined())
        throw JsonError(u"The value of \"%1\" is missing."_s.arg(pathOf(key)));
    if (found.type() != type)
        fail(key, typeName(type));
    return found;
}

qint64 JsonObjectReader::integer(QLatin1StringView key, qint64 minimum, qint64 maximum) const
{
    const auto found = value(key, QJsonValue::Double);
    // A number that is not integral, or beyond 64 bits, gives whichever default is asked for.
    const auto result = found.toInteger(0);
    if (found.toInteger(1) != result || result < minimum || result > maximum)
        fail(key, u"an integer from %1 to %2"_s.arg(minimum).arg(maximum));
    return result;
}

QList<JsonObjectReader> jsonObjectReaders(const QJsonArray &array, const QString &path)
{
    QList<JsonObjectReader> readers;
    for (const auto &element : array)
        readers.append(JsonObjectReader(element, elementPath(path, readers.size())));
    return readers;
}
