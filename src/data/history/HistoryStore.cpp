// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HistoryStore.h"

#include "DataDirectory.h"
#include "HistoryCoding.h"
#include "LocalizedError.h"
#include "SecureFile.h"
#include "SystemLog.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto fileName = "history.json"_L1;
constexpr qsizetype limit = 200;
constexpr auto drainLimit = std::chrono::seconds(2);

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

void HistoryStore::restore(const HistoryItem &item, qsizetype position)
{
    m_items.insert(std::min(position, m_items.size()), item);
    save();
}

void HistoryStore::load()
{
    const auto path = historyURL().toLocalFile();
    m_items.clear();
    try {
        if (DataDirectory::prepareFile(fileName))
            m_items = decodeHistory(SecureFile::read(path));
    } catch (const LocalizedError &) {
        // An unreadable history is an empty one; the file is kept for whoever can still read it.
        const QFileInfo file(path);
        m_isFileUnreadable = file.isFile() || file.isSymLink();
    }
}

void HistoryStore::drain()
{
    m_queue.submit([this] {
        if (!m_unsaved.isEmpty())
            write(m_unsaved);
    });
    if (!m_queue.drain(drainLimit))
        SystemLog::report(u"history not saved: the disk does not answer."_s);
}

void HistoryStore::save()
{
    m_queue.submit([this, text = encodeHistory(m_items)] { write(text); });
}

// On the queue.
void HistoryStore::write(const QByteArray &text)
{
    try {
        DataDirectory::create();
        if (m_isFileUnreadable)
            static_cast<void>(DataDirectory::setAside(fileName));
        m_isFileUnreadable = false;
        SecureFile::replace(historyURL().toLocalFile(), text);
        m_unsaved.clear();
    } catch (const LocalizedError &error) {
        m_unsaved = text;
        SystemLog::report(u"history save failed: "_s + error.localizedDescription());
    }
}
