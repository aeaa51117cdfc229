// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TemporaryDirectory.h"

#include "FileDescriptor.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// The value of the environment variable when it names an existing directory.
QString directoryFromEnvironment(const char *variable)
{
    const auto path = qEnvironmentVariable(variable);
    return QDir::isAbsolutePath(path) && QDir(path).exists() ? QDir::cleanPath(path) : QString();
}

// Whether nobody else can put files into the directory.
bool isOwn(const QString &directory)
{
    struct stat status = {};
    return !directory.isEmpty() && ::stat(QFile::encodeName(directory).constData(), &status) == 0
        && status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

// A folder of ours inside a directory that everybody can write to.
QString ownFolder(const QString &sharedDirectory)
{
    auto path = u"%1/wrenfold-%2"_s.arg(sharedDirectory).arg(::geteuid());
    const auto name = QFile::encodeName(path);
    ::mkdir(name.constData(), S_IRWXU);
    const FileDescriptor folder(
        ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    const bool isOurs = folder.isOpen() && ::fstat(folder.get(), &status) == 0
        && status.st_uid == ::geteuid() && ::fchmod(folder.get(), S_IRWXU) == 0;
    return isOurs ? path : QString();
}

} // namespace

QString temporaryDirectoryPath()
{
    for (const auto *variable : {"XDG_RUNTIME_DIR", "TMPDIR"})
        if (auto directory = directoryFromEnvironment(variable); isOwn(directory))
            return directory;
    const auto shared = directoryFromEnvironment("TMPDIR");
    return ownFolder(shared.isEmpty() ? u"/tmp"_s : shared);
}
