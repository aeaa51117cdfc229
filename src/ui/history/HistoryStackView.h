// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QUuid>
#include <QWidget>

#include <vector>

class HistoryRowView;

// What the transcript history scrolls: headings and rows, one below the other, all as wide as the
// stack. Qt's own layouts would ask every row for its height in several widths.
class HistoryStackView final : public QWidget
{
public:
    struct Row
    {
        QUuid id;
        HistoryRowView *view = nullptr;
    };

    HistoryStackView();

    // These take the view over.
    void append(QWidget *view);
    void appendRow(const QUuid &id, HistoryRowView *view);
    [[nodiscard]] const std::vector<Row> &rows() const { return m_rows; }

    // Is never lower than this, in whatever width.
    [[nodiscard]] int leastHeight() const;
    // Takes this width and the height that it needs.
    void layOut(int width);

private:
    std::vector<QWidget *> m_views;
    std::vector<Row> m_rows;
};
