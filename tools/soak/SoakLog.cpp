// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SoakLog.h"

#include "AppLogger.h"
#include "WaitUntil.h"

#include <algorithm>

#include <sys/stat.h>

void SoakLog::mark()
{
    read();
    m_lines.clear();
}

const QStringList &SoakLog::lines()
{
    read();
    return m_lines;
}

bool SoakLog::await(const QStringList &texts, std::chrono::milliseconds limit)
{
    return waitUntil(
        [&] { return std::ranges::any_of(texts, [this](const auto &text) { return has(text); }); },
        limit);
}

void SoakLog::read()
{
    const bool isOld = m_file.isOpen() && hasBeenMoved(); // asked first: nothing comes after that
    m_unfinished += m_file.isOpen() ? m_file.readAll() : QByteArray();
    const auto end = m_unfinished.lastIndexOf('\n') + 1;
    m_lines += QString::fromUtf8(m_unfinished.first(end)).split(u'\n', Qt::SkipEmptyParts);
    m_unfinished.remove(0, end);
    if (!isOld && m_file.isOpen())
        return;
    m_file.close();
    m_file.setFileName(AppLogger::logFileURL().toLocalFile());
    static_cast<void>(m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
}

bool SoakLog::hasBeenMoved() const
{
    struct stat opened = {};
    struct stat found = {};
    const auto path = QFile::encodeName(m_file.fileName());
    return ::stat(path.constData(), &found) == 0 && ::fstat(m_file.handle(), &opened) == 0
        && opened.st_ino != found.st_ino;
}
