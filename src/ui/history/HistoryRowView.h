// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ElidedText.h"

#include <QVariantAnimation>
#include <QWidget>

#include <array>
#include <functional>

class IconClosureButton;

// One result of the transcript history: its time, at most four lines of its text unless it is
// expanded, by a click on it for instance, and three buttons, which fade in while the pointer is on
// the row or the keyboard focus is in it. Invisible they work all the same.
class HistoryRowView final : public QWidget
{
public:
    // Time and text are also the accessible name.
    HistoryRowView(const QString &timeText,
                   const QString &polishedText,
                   std::function<void()> onPaste,
                   std::function<void()> onCopy,
                   std::function<void()> onDelete);

    void setHovered(bool isHovered);
    // Shows the whole text, or four lines of it again.
    void toggleExpanded();
    // Of the buttons and the background: from 0 (invisible) to 1.
    [[nodiscard]] double actionOpacity() const { return m_actionOpacity; }
    // What takes the keyboard focus, in tab order: the row itself and its buttons.
    [[nodiscard]] std::array<QWidget *, 4> focusTargets();

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void drawSeparator(QPainter &painter) const;
    void setFocusInside(bool isFocusInside);
    void fadeActions();
    void setActionOpacity(double opacity);

    QString m_timeText;
    // Laid out when its height is asked for.
    mutable ElidedText m_text;
    std::array<IconClosureButton *, 3> m_actions;
    QVariantAnimation m_fade{this};
    double m_actionOpacity = 0;
    bool m_isExpanded = false;
    bool m_isHovered = false;
    bool m_isFocusInside = false;
};
