// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HistoryItem.h"

#include <QList>
#include <QUrl>

// The transcript history: newest first, bounded to 200, written whole after every change. Failures
// are handled inside: a failed save is one line in the system's log. Main thread only.
class HistoryStore final
{
public:
    // Holds the file's items at once; a missing or undecodable file is an empty history. The first
    // save moves an undecodable file aside, to "history.unreadable-<time>.json".
    HistoryStore();

    [[nodiscard]] static QUrl historyURL();
    [[nodiscard]] static QUrl legacyHistoryURL();

    [[nodiscard]] const QList<HistoryItem> &items() const { return m_items; }

    // Records one result, stored as given.
    void add(const QString &transcript, const QString &polished);
    // Removes every item with that id.
    void remove(const QUuid &id);

private:
    void load();
    void save();

    QList<HistoryItem> m_items;
    // The file held something else than a history: the first save moves it aside.
    bool m_isFileUnreadable = false;
};
