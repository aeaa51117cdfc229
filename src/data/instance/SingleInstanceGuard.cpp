// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SingleInstanceGuard.h"

#include "AppLogger.h"
#include "SecureFile.h"
#include "TemporaryDirectory.h"

#include <QFile>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Letters, marks and numbers of every script, "." and "-" stay; every other scalar is one "-".
QString sanitized(const QString &identifier)
{
    QString result;
    const auto scalars = identifier.toUcs4();
    for (const char32_t character : scalars) {
        const bool isAllowed =
            QChar::isLetterOrNumber(character) || QChar::isMark(character) || character == U'.';
        if (isAllowed)
            result += QChar::fromUcs4(character);
        else
            result += u'-';
    }
    return result;
}

QUrl lockFileURL(const QString &identifier)
{
    const auto directory = temporaryDirectoryPath();
    return directory.isEmpty()
        ? QUrl()
        : QUrl::fromLocalFile(directory + u'/' + sanitized(identifier) + u".lock"_s);
}

// Non-blocking, so that a pipe in the file's place cannot hold the launch up.
FileDescriptor openLockFile(const QString &path)
{
    FileDescriptor file(::open(QFile::encodeName(path).constData(),
                               O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK,
                               S_IRUSR | S_IWUSR));
    struct stat status = {};
    if (file.isOpen() && (::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)))
        file.reset();
    return file;
}

int lockWithoutWaiting(const FileDescriptor &file)
{
    int result = -1;
    do
        result = ::flock(file.get(), LOCK_EX | LOCK_NB);
    while (result != 0 && errno == EINTR);
    return result == 0 ? 0 : errno;
}

// For people only: nothing reads the file, so failures do not matter.
void writeProcessID(const FileDescriptor &file)
{
    const auto text = QByteArray::number(::getpid()) + '\n';
    if (::ftruncate(file.get(), 0) == 0)
        static_cast<void>(SecureFile::writeSome(file, text));
}

} // namespace

SingleInstanceGuard::SingleInstanceGuard(const QString &identifier)
    : m_lockURL(lockFileURL(identifier))
{}

SingleInstanceGuard::~SingleInstanceGuard()
{
    release();
}

bool SingleInstanceGuard::acquire()
{
    if (m_lockFile.isOpen())
        return true;
    const auto path = m_lockURL.toLocalFile();
    auto file = openLockFile(path);
    const int error = file.isOpen() ? lockWithoutWaiting(file) : 0;
    if (error == EWOULDBLOCK)
        return false;
    // A guard that cannot work, here or on a file system without locks, stops nobody.
    if (!file.isOpen() || error != 0) {
        AppLogger::warning(u"Single instance lock could not be opened. path="_s + path);
        return true;
    }
    m_lockFile = std::move(file);
    writeProcessID(m_lockFile);
    AppLogger::info(u"Single instance lock acquired. path="_s + path);
    return true;
}

void SingleInstanceGuard::release()
{
    // Unlocked explicitly: a child between fork and exec may hold the same open file.
    if (m_lockFile.isOpen())
        ::flock(m_lockFile.get(), LOCK_UN);
    m_lockFile.reset();
}
