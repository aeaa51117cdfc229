// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SecureFile.h"

#include "FileError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t directoryMode = 0700;
constexpr mode_t fileMode = 0600;
constexpr mode_t permissionBits = 07777;

constexpr auto unfinishedSuffix = ".saving"_L1;

// Opens a regular file and makes it private. Non-blocking, so that a pipe in its place is refused
// instead of waited for.
FileDescriptor openRegular(const QString &path, int flags, const QString &action)
{
    const auto name = QFile::encodeName(path);
    FileDescriptor file(::open(name.constData(), flags | O_CLOEXEC | O_NONBLOCK, fileMode));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0)
        throw FileError(action, path, errno);
    if (!S_ISREG(status.st_mode))
        throw FileError(action, path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    // Refused on a read-only file system or by another owner; the content can be used all the same.
    if ((status.st_mode & permissionBits) != fileMode)
        static_cast<void>(::fchmod(file.get(), fileMode));
    return file;
}

// The file itself when the path is a link to it; the path when there is none.
QString resolved(const QString &path)
{
    const auto target = QFileInfo(path).canonicalFilePath();
    return target.isEmpty() ? path : target;
}

bool isOurs(const FileDescriptor &file)
{
    struct stat status = {};
    return ::fstat(file.get(), &status) == 0 && status.st_uid == ::geteuid();
}

// What stands before the process id in the name of a temporary file.
QString unfinishedPrefix(const QFileInfo &target)
{
    return u'.' + target.fileName() + u'.';
}

QString unfinishedPath(const QString &target)
{
    const QFileInfo info(target);
    return info.path() + u'/' + unfinishedPrefix(info) + QString::number(::getpid())
        + unfinishedSuffix;
}

void writeUnfinished(const QString &path, const QByteArray &content)
{
    // Left by an earlier process with our id.
    ::unlink(QFile::encodeName(path).constData());
    const auto file = openRegular(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, u"write"_s);
    const bool isWritten =
        SecureFile::writeSome(file, content) == content.size() && ::fsync(file.get()) == 0;
    if (!isWritten)
        throw FileError(u"write"_s, path, errno);
}

bool isAlive(pid_t process)
{
    return ::kill(process, 0) == 0 || errno != ESRCH;
}

} // namespace

void SecureFile::createDirectory(const QString &path)
{
    const auto name = QFile::encodeName(path);
    if (::mkdir(name.constData(), directoryMode) == 0)
        return;
    if (errno == ENOENT && QDir().mkpath(QFileInfo(path).path())
        && ::mkdir(name.constData(), directoryMode) == 0)
        return;
    const int error = errno;
    struct stat status = {};
    if (error != EEXIST || ::stat(name.constData(), &status) != 0 || !S_ISDIR(status.st_mode))
        throw FileError(u"create the directory"_s, path, error);
    // Refused on a read-only file system or by another owner; the files inside are private anyway.
    if ((status.st_mode & permissionBits) != directoryMode)
        static_cast<void>(::chmod(name.constData(), directoryMode));
}

QByteArray SecureFile::read(const QString &path)
{
    const auto descriptor = openRegular(path, O_RDONLY, u"read"_s);
    QFile file;
    if (!file.open(descriptor.get(), QIODevice::ReadOnly))
        throw FileError(u"read"_s, path, errno);
    auto content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw FileError(u"read"_s, path, errno);
    return content;
}

void SecureFile::replace(const QString &path, const QByteArray &content)
{
    const QFileInfo info(path);
    if (info.isSymLink() && !info.exists())
        throw FileError(u"replace"_s, path, ENOENT);
    const auto target = resolved(path);
    const auto unfinished = unfinishedPath(target);
    const auto unfinishedName = QFile::encodeName(unfinished);
    try {
        writeUnfinished(unfinished, content);
        if (std::rename(unfinishedName.constData(), QFile::encodeName(target).constData()) != 0)
            throw FileError(u"replace"_s, path, errno);
    } catch (...) {
        ::unlink(unfinishedName.constData());
        throw;
    }
}

void SecureFile::removeUnfinished(const QString &path)
{
    const QFileInfo target(resolved(path));
    const auto prefix = unfinishedPrefix(target);
    const auto names =
        target.dir().entryList({prefix + u'*' + unfinishedSuffix}, QDir::Files | QDir::Hidden);
    for (const auto &name : names) {
        bool isNumber = false;
        const auto process =
            name.sliced(prefix.size()).chopped(unfinishedSuffix.size()).toInt(&isNumber);
        if (isNumber && process > 0 && (process == ::getpid() || !isAlive(process)))
            QFile::remove(target.dir().filePath(name));
    }
}

FileDescriptor SecureFile::openForAppending(const QString &path)
{
    auto file = openRegular(path, O_RDWR | O_APPEND | O_CREAT, u"open"_s);
    if (QFileInfo(path).isSymLink() && !isOurs(file))
        throw FileError(u"open"_s, path, EPERM);
    return file;
}

qint64 SecureFile::writeSome(const FileDescriptor &file, const QByteArray &content)
{
    qint64 total = 0;
    while (total < content.size()) {
        const auto rest = QByteArrayView(content).sliced(total);
        const auto written = ::write(file.get(), rest.data(), static_cast<size_t>(rest.size()));
        if (written < 0 && errno != EINTR)
            break;
        total += std::max(written, ssize_t{0});
    }
    return total;
}
