// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QWidget>

#include <functional>

struct HistoryItem;
class DeletionUndo;
class HistoryListView;
class HistoryRowView;
class HistoryStore;
struct MainWindowCallbacks;

// The page of the transcript history: the stored results in the store's order, with a heading
// wherever the day changes. A result can be pasted again, copied and deleted.
class HistoryPage final : public QWidget
{
public:
    // The list is empty until the first reload. What is given by reference must outlive the page;
    // the clock tells the current time.
    HistoryPage(
        HistoryStore &store,
        const MainWindowCallbacks &callbacks,
        DeletionUndo &deletions,
        std::function<QDateTime()> clock = [] { return QDateTime::currentDateTime(); });

    // Shows the store's items, under the days that they belong to in the time zone and at the hour
    // of now.
    void reloadHistory();
    // "今天", "昨天", the day within this year, or the day with its year: in local time.
    [[nodiscard]] QString dateHeaderText(const QDateTime &date) const;

private:
    [[nodiscard]] HistoryRowView *makeRow(const HistoryItem &item);
    void remove(const QUuid &id);

    HistoryStore &m_store;
    const MainWindowCallbacks &m_callbacks;
    DeletionUndo &m_deletions;
    std::function<QDateTime()> m_clock;
    HistoryListView *m_list;
};
