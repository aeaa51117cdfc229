// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataDirectory.h"

#include "AppRuntime.h"
#include "SecureFile.h"

#include <QDir>
#include <QFileInfo>

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

bool DataDirectory::prepareFile(const QString &name)
{
    const auto file = filePath(name);
    SecureFile::removeUnfinished(file);
    if (QFileInfo::exists(file))
        return true;
    const auto legacy = legacyFilePath(name);
    if (!QFileInfo::exists(legacy))
        return false;
    create();
    SecureFile::replace(file, SecureFile::read(legacy));
    return true;
}
