// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataDirectory.h"

#include "AppRuntime.h"
#include "FileError.h"
#include "SecureFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Also when it is a link whose target is missing.
bool isPresent(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

} // namespace

QString DataDirectory::path()
{
    return QDir::homePath() + u'/' + AppRuntime::configDirectoryName;
}

QString DataDirectory::filePath(const QString &name)
{
    return path() + u'/' + name;
}

QString DataDirectory::legacyFilePath(const QString &name)
{
    return QDir::homePath() + u'/' + AppRuntime::legacyConfigDirectoryName + u'/' + name;
}

void DataDirectory::create()
{
    SecureFile::createDirectory(path());
}

QString DataDirectory::setAside(const QString &name)
{
    const auto path = filePath(name);
    const QFileInfo info(path);
    const auto time = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmsszzz'Z'"_s);
    auto target =
        filePath(u"%1.unreadable-%2.%3"_s.arg(info.completeBaseName(), time, info.suffix()));
    if (isPresent(target))
        throw FileError(u"set aside"_s, path, EEXIST);
    if (std::rename(QFile::encodeName(path).constData(), QFile::encodeName(target).constData())
        == 0)
        return target;
    if (errno == ENOENT)
        return {};
    throw FileError(u"set aside"_s, path, errno);
}

bool DataDirectory::prepareFile(const QString &name)
{
    const auto file = filePath(name);
    SecureFile::removeUnfinished(file);
    if (isPresent(file))
        return true;
    const auto legacy = legacyFilePath(name);
    if (!isPresent(legacy))
        return false;
    create();
    SecureFile::replace(file, SecureFile::read(legacy));
    return true;
}
