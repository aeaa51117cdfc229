// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QScrollArea>
#include <QUuid>

#include <optional>

class HistoryStackView;

// The scrolling list of the transcript history. Its stack is replaced as a whole; rows are known by
// their ids, so that the position and the keyboard focus outlive that. It is one stop for Tab:
// within it Up, Down, Home and End move the focus from row to row, Left and Right between the row
// and its actions. Return shows the whole text of the row, or less of it. Whoever comes back to it
// finds it at the top.
class HistoryListView final : public QScrollArea
{
public:
    HistoryListView();

    // Shows a stack, which it takes over. What is visible stays in its place, but for the very top,
    // which stays the top. The focus stays on its row, or moves to the one in its place.
    void setStack(HistoryStackView *stack);

protected:
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void showEvent(QShowEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    // What a visible view shows, unless it is the very top.
    struct Anchor
    {
        QUuid id; // of the first visible row
        int offset = 0; // of the view's top from that row's
        int top = 0; // of the view
    };
    struct Focus
    {
        QUuid id;
        size_t row = 0;
        size_t target = 0; // of HistoryRowView::focusTargets()
    };

    [[nodiscard]] std::optional<Anchor> anchor() const;
    [[nodiscard]] int topAt(const Anchor &anchor) const;
    [[nodiscard]] std::optional<Focus> focus() const;
    void restoreFocus(const Focus &old);
    void focusRow(size_t row, size_t target);
    // Makes this the row that Tab goes to.
    void setCurrentRow(size_t row);
    bool eventFilter(QObject *watched, QEvent *event) override;
    void layOut();
    void updateHover();

    HistoryStackView *m_stack = nullptr;
    QUuid m_currentId; // of the row that Tab goes to
    // In the viewport, while it is there.
    std::optional<QPoint> m_pointer;
};
