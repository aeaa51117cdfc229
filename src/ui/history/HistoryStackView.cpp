// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HistoryStackView.h"

#include "AccessibleRole.h"
#include "HistoryRowView.h"

using namespace Qt::StringLiterals;

HistoryStackView::HistoryStackView()
{
    setAccessibleRole(*this, QAccessible::List, u"剪贴板"_s);
}

void HistoryStackView::append(QWidget *view)
{
    view->setParent(this);
    m_views.push_back(view);
}

void HistoryStackView::appendRow(const QUuid &id, HistoryRowView *view)
{
    append(view);
    m_rows.push_back({id, view});
}

int HistoryStackView::leastHeight() const
{
    int height = 0;
    for (const auto *view : m_views)
        height += view->sizeHint().height();
    return height;
}

void HistoryStackView::layOut(int width)
{
    int y = 0;
    for (auto *view : m_views) {
        const int height =
            view->hasHeightForWidth() ? view->heightForWidth(width) : view->sizeHint().height();
        view->setGeometry(0, y, width, height);
        y += height;
    }
    resize(width, y);
}
