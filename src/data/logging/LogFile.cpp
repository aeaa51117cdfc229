// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "LogFile.h"

#include "DataDirectory.h"
#include "FileError.h"
#include "SecureFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// How long the system takes at most to add one line.
constexpr auto longestWrite = std::chrono::milliseconds(10);

QString oldPath()
{
    return LogFile::directoryPath() + u"/wrenfold.old.log"_s;
}

FileDescriptor openLog()
{
    DataDirectory::create();
    SecureFile::createDirectory(LogFile::directoryPath());
    return SecureFile::openForAppending(LogFile::path());
}

qint64 sizeOf(const FileDescriptor &file)
{
    struct stat status = {};
    return ::fstat(file.get(), &status) == 0 ? status.st_size : 0;
}

bool isAtLogPath(const FileDescriptor &file)
{
    struct stat opened = {};
    struct stat found = {};
    return ::fstat(file.get(), &opened) == 0
        && ::stat(QFile::encodeName(LogFile::path()).constData(), &found) == 0
        && opened.st_dev == found.st_dev && opened.st_ino == found.st_ino;
}

// Of several processes that found the file full, the lock lets one move it, and those that come
// later see that another file stands in its place. Failures leave the file growing. A link to the
// log stays, and a new file comes into being where it points to.
void rotate(const FileDescriptor &file)
{
    const bool isBusy = ::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (!isBusy && isAtLogPath(file))
        static_cast<void>(std::rename(
            QFile::encodeName(QFileInfo(LogFile::path()).canonicalFilePath()).constData(),
            QFile::encodeName(oldPath()).constData()));
}

bool endsWithinLine(const FileDescriptor &file, qint64 size)
{
    char last = '\n';
    return size > 0 && ::pread(file.get(), &last, 1, size - 1) == 1 && last != '\n';
}

// Whether a killed process left its line unfinished. Another process that is writing right now can
// look the same, but not for long.
bool isTorn(const FileDescriptor &file)
{
    const auto size = sizeOf(file);
    if (!endsWithinLine(file, size))
        return false;
    std::this_thread::sleep_for(longestWrite);
    return sizeOf(file) == size && endsWithinLine(file, size);
}

// Takes back the part of a line that still found room, unless another process wrote behind it.
void takeBack(const FileDescriptor &file, qint64 written)
{
    const auto end = ::lseek(file.get(), 0, SEEK_CUR);
    if (written == 0 || end < written || end != sizeOf(file))
        return;
    // Where this fails too, the part of a line stays.
    [[maybe_unused]] const int result = ::ftruncate(file.get(), end - written);
}

} // namespace

QString LogFile::directoryPath()
{
    return DataDirectory::filePath(u"logs"_s);
}

QString LogFile::path()
{
    return directoryPath() + u"/wrenfold.log"_s;
}

void LogFile::prepare()
{
    static_cast<void>(openLog());
}

void LogFile::append(const QByteArray &line)
{
    auto file = openLog();
    if (sizeOf(file) >= rotationSize) {
        rotate(file);
        file = openLog();
    }
    const auto text = isTorn(file) ? '\n' + line : line;
    const auto written = SecureFile::writeSome(file, text);
    if (written == text.size())
        return;
    const int error = errno;
    takeBack(file, written);
    throw FileError(u"write"_s, path(), error);
}

QByteArray LogFile::contents()
{
    QByteArray contents;
    for (const auto &path : {oldPath(), path()})
        if (QFile::exists(path))
            contents += SecureFile::read(path);
    return contents;
}
