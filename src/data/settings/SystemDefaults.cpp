// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SystemDefaults.h"

#include "AppConfigCoding.h"
#include "JsonCoding.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QString defaultsPath()
{
    const auto folders = qEnvironmentVariable("XDG_CONFIG_DIRS").split(u':', Qt::SkipEmptyParts);
    for (const auto &folder : folders.isEmpty() ? QStringList{u"/etc/xdg"_s} : folders) {
        auto path = folder + "/wrenfold/defaults.json"_L1;
        if (QDir::isAbsolutePath(folder) && QFile::exists(path))
            return path;
    }
    return {};
}

QJsonObject merged(QJsonObject base, const QJsonObject &values)
{
    for (auto value = values.begin(); value != values.end(); ++value) {
        const QJsonValue earlier = base[value.key()];
        const bool isPart = earlier.isObject() && value->isObject();
        base[value.key()] =
            isPart ? merged(earlier.toObject(), value->toObject()) : QJsonValue(*value);
    }
    return base;
}

} // namespace

AppConfig newConfigOfThisMachine()
{
    const auto path = defaultsPath();
    if (path.isEmpty())
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw LocalizedError(u"Cannot read \"%1\": %2."_s.arg(path, file.errorString()));
    try {
        const auto initial = parseJson(encodeAppConfig({})).object();
        const auto values = parseJson(file.readAll()).object();
        return decodeAppConfig(QJsonDocument(merged(initial, values)).toJson());
    } catch (const JsonError &error) {
        throw LocalizedError(path + ": "_L1 + error.localizedDescription());
    }
}
