// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HistoryItem.h"
#include "SerialQueue.h"

#include <QList>
#include <QUrl>

// The transcript history: newest first, bounded to 200, written whole after every change, in the
// order of the changes, on a thread of its own: a disk takes its time to make a file survive a
// power cut. Failures are handled inside: a failed save is one line in the system's log. Main
// thread only. Its end waits for what is still to be written.
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
    // Puts back an item that was removed, where it was.
    void restore(const HistoryItem &item, qsizetype position);

    // Holds what the file holds now. Not while changes are being written.
    void load();
    // Returns when every change so far has been written; the newest save is tried once more if it
    // failed. A disk that hangs is waited for two seconds, and a line in the system's log then says
    // so.
    void drain();

private:
    void save();
    void write(const QByteArray &text);

    QList<HistoryItem> m_items;
    QByteArray m_unsaved; // what the newest save could not write. The queue's.
    // The file held something else than a history: the first save moves it aside. The queue's.
    bool m_isFileUnreadable = false;
    SerialQueue m_queue{"local.wrenfold.history"};
};
