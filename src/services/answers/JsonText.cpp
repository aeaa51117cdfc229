// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "JsonText.h"

using namespace Qt::StringLiterals;

QByteArray JsonText::string(const QString &text)
{
    const auto list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return list.sliced(1, list.size() - 2);
}

QByteArray JsonText::boolean(bool value)
{
    return value ? "true"_qba : "false"_qba;
}

JsonObjectReader JsonText::parseObject(const QByteArray &answer)
{
    const auto document = parseJson(answer);
    return JsonObjectReader(document.isObject() ? QJsonValue(document.object()) : QJsonValue());
}
