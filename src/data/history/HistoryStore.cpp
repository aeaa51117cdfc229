// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HistoryStore.h"

#include "DataDirectory.h"
#include "FileError.h"
#include "HistoryCoding.h"
#include "SecureFile.h"
#include "SystemLog.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr auto fileName = "history.json"_L1;
constexpr qsizetype limit = 200;

void moveAside(const QString &path)
{
    const auto time = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmsszzz'Z'"_s);
    const auto target = DataDirectory::filePath(u"history.unreadable-%1.json"_s.arg(time));
    if (QFileInfo::exists(target))
        throw FileError(u"move aside"_s, path, EEXIST);
    if (std::rename(QFile::encodeName(path).constData(), QFile::encodeName(target).constData())
        != 0)
        throw FileError(u"move aside"_s, path, errno);
}

} // namespace

HistoryStore::HistoryStore()
{
    load();
}

QUrl HistoryStore::historyURL()
{
    return QUrl::fromLocalFile(DataDirectory::filePath(fileName));
}

QUrl HistoryStore::legacyHistoryURL()
{
    return QUrl::fromLocalFile(DataDirectory::legacyFilePath(fileName));
}

void HistoryStore::add(const QString &transcript, const QString &polished)
{
    m_items.prepend({.id = QUuid::createUuid(),
                     .createdAt = QDateTime::currentDateTimeUtc(),
                     .transcript = transcript,
                     .polished = polished});
    if (m_items.size() > limit)
        m_items.resize(limit);
    save();
}

void HistoryStore::remove(const QUuid &id)
{
    m_items.removeIf([&id](const HistoryItem &item) { return item.id == id; });
    save();
}

void HistoryStore::load()
{
    const auto path = historyURL().toLocalFile();
    try {
        if (DataDirectory::prepareFile(fileName))
            m_items = decodeHistory(SecureFile::read(path));
    } catch (const LocalizedError &) {
        // An unreadable history is an empty one; the file is kept for whoever can still read it.
        m_isFileUnreadable = QFileInfo(path).isFile();
    }
}

void HistoryStore::save()
{
    const auto path = historyURL().toLocalFile();
    try {
        DataDirectory::create();
        if (m_isFileUnreadable)
            moveAside(path);
        m_isFileUnreadable = false;
        SecureFile::replace(path, encodeHistory(m_items), SecureFile::Durability::ProcessDeath);
    } catch (const LocalizedError &error) {
        SystemLog::report(u"history save failed: "_s + error.localizedDescription());
    }
}
