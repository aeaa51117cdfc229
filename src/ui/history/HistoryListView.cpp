// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HistoryListView.h"

#include "HistoryRowView.h"
#include "HistoryStackView.h"

#include <QHoverEvent>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

HistoryListView::HistoryListView()
{
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(new QWidget);
    viewport()->setAttribute(Qt::WA_Hover);
}

void HistoryListView::setStack(HistoryStackView *stack)
{
    const auto oldAnchor = anchor();
    const auto oldFocus = focus();
    auto *oldStack = std::exchange(m_stack, stack);
    stack->setParent(widget());
    stack->installEventFilter(this);
    const auto current = std::ranges::find(stack->rows(), m_currentId, &HistoryStackView::Row::id);
    setCurrentRow(current == stack->rows().end() ? 0 : size_t(current - stack->rows().begin()));
    layOut();
    stack->show();
    // The old focus is left before its row goes: Qt would move it out of the list in between.
    if (oldFocus)
        restoreFocus(*oldFocus);
    if (oldStack) {
        oldStack->hide();
        oldStack->deleteLater(); // this may be the answer to one of its buttons
    }
    verticalScrollBar()->setValue(oldAnchor ? topAt(*oldAnchor) : 0);
    if (const auto newFocus = focus(); newFocus && newFocus->id != oldFocus->id)
        ensureWidgetVisible(m_stack->rows()[newFocus->row].view);
    updateHover();
}

void HistoryListView::hideEvent(QHideEvent *event)
{
    QScrollArea::hideEvent(event);
    if (!event->spontaneous()) // not when the window is only minimized
        verticalScrollBar()->setValue(0);
}

void HistoryListView::keyPressEvent(QKeyEvent *event)
{
    const auto current = focus();
    if (!current) {
        QScrollArea::keyPressEvent(event);
        return;
    }
    const auto last = m_stack->rows().size() - 1;
    auto [id, row, target] = *current;
    switch (event->key()) {
    case Qt::Key_Up:
        row -= std::min<size_t>(row, 1);
        break;
    case Qt::Key_Down:
        row = std::min(row + 1, last);
        break;
    case Qt::Key_Left:
        target -= std::min<size_t>(target, 1);
        break;
    case Qt::Key_Right:
        target = std::min(target + 1, m_stack->rows()[row].view->focusTargets().size() - 1);
        break;
    case Qt::Key_Home:
        row = 0;
        break;
    case Qt::Key_End:
        row = last;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (target == 0) {
            m_stack->rows()[row].view->toggleExpanded();
            break;
        }
        [[fallthrough]];
    default:
        QScrollArea::keyPressEvent(event);
        return;
    }
    focusRow(row, target);
    ensureWidgetVisible(m_stack->rows()[row].view);
}

// A row that becomes higher or lower asks for a layout.
bool HistoryListView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_stack && event->type() == QEvent::LayoutRequest)
        layOut();
    return QScrollArea::eventFilter(watched, event);
}

void HistoryListView::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    layOut();
}

void HistoryListView::showEvent(QShowEvent *event)
{
    layOut();
    QScrollArea::showEvent(event);
}

// Not the wheel alone moves rows under the pointer: scrolling does.
void HistoryListView::scrollContentsBy(int dx, int dy)
{
    QScrollArea::scrollContentsBy(dx, dy);
    updateHover();
}

bool HistoryListView::viewportEvent(QEvent *event)
{
    const auto type = event->type();
    if (type == QEvent::HoverEnter || type == QEvent::HoverMove)
        m_pointer = static_cast<QHoverEvent *>(event)->position().toPoint();
    else if (type == QEvent::HoverLeave)
        m_pointer.reset();
    if (type == QEvent::HoverEnter || type == QEvent::HoverMove || type == QEvent::HoverLeave)
        updateHover();
    return QScrollArea::viewportEvent(event);
}

std::optional<HistoryListView::Anchor> HistoryListView::anchor() const
{
    const int top = verticalScrollBar()->value();
    if (top == 0)
        return {};
    for (const auto &row : m_stack->rows())
        if (row.view->geometry().bottom() >= top)
            return Anchor{.id = row.id, .offset = top - row.view->y(), .top = top};
    return {};
}

int HistoryListView::topAt(const Anchor &anchor) const
{
    const auto row = std::ranges::find(m_stack->rows(), anchor.id, &HistoryStackView::Row::id);
    return row == m_stack->rows().end() ? anchor.top : row->view->y() + anchor.offset;
}

std::optional<HistoryListView::Focus> HistoryListView::focus() const
{
    auto *focused = window()->focusWidget();
    if (!m_stack || !m_stack->isAncestorOf(focused))
        return {};
    const auto &rows = m_stack->rows();
    for (size_t row = 0; row < rows.size(); ++row) {
        const auto targets = rows[row].view->focusTargets();
        const auto target = std::ranges::find(targets, focused);
        if (target != targets.end())
            return Focus{rows[row].id, row, size_t(target - targets.begin())};
    }
    return {};
}

void HistoryListView::restoreFocus(const Focus &old)
{
    const auto &rows = m_stack->rows();
    if (rows.empty())
        return;
    const auto same = std::ranges::find(rows, old.id, &HistoryStackView::Row::id);
    const auto row =
        same == rows.end() ? std::min(old.row, rows.size() - 1) : size_t(same - rows.begin());
    focusRow(row, old.target);
}

void HistoryListView::focusRow(size_t row, size_t target)
{
    setCurrentRow(row);
    m_stack->rows()[row].view->focusTargets().at(target)->setFocus(Qt::OtherFocusReason);
}

void HistoryListView::setCurrentRow(size_t row)
{
    const auto &rows = m_stack->rows();
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i].view->setFocusPolicy(i == row ? Qt::TabFocus : Qt::NoFocus);
    if (row < rows.size())
        m_currentId = rows[row].id;
}

// To find out whether there has to be a scroll bar, rows are laid out a second time only where
// their least height does not tell.
void HistoryListView::layOut()
{
    if (!m_stack || !isVisible())
        return;
    const auto room = contentsRect().size();
    const int scrollBarWidth = verticalScrollBar()->sizeHint().width();
    bool isScrolling = m_stack->leastHeight() > room.height();
    m_stack->layOut(room.width() - (isScrolling ? scrollBarWidth : 0));
    if (!isScrolling && m_stack->height() > room.height()) {
        isScrolling = true;
        m_stack->layOut(room.width() - scrollBarWidth);
    }
    setVerticalScrollBarPolicy(isScrolling ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    widget()->resize(m_stack->size());
}

void HistoryListView::updateHover()
{
    if (!m_stack)
        return;
    for (const auto &row : m_stack->rows())
        row.view->setHovered(
            m_pointer && row.view->geometry().contains(m_stack->mapFrom(viewport(), *m_pointer)));
}
