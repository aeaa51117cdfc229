// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QWidget>

class QStackedLayout;

// A window of labels and buttons that do nothing: what so many widgets cost whoever shows them.
class BareWindow final : public QWidget
{
public:
    // One page for each number of widgets.
    explicit BareWindow(const QList<qsizetype> &pages);

    void setCurrentPage(int page);

private:
    QStackedLayout *m_pages;
};
