// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HistoryRowView.h"

#include "AccessibleRole.h"
#include "FocusFrame.h"
#include "IconClosureButton.h"
#include "InterfaceFont.h"
#include "Palette.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastHeight = 54;
constexpr int sideInset = 12;
constexpr int timeTop = 12;
constexpr int timeWidth = 82;
constexpr int textLeft = sideInset + timeWidth + 12;
constexpr int textTop = 11;
constexpr int textBottomInset = 12;
constexpr int maximumLines = 4;
constexpr int actionSize = 24;
constexpr int actionSpacing = 8;
constexpr int actionTop = 9;
constexpr int actionsWidth = 3 * actionSize + 2 * actionSpacing;
constexpr int textRightInset = 14 + actionsWidth + sideInset;
constexpr int fadeMilliseconds = 120;

} // namespace

HistoryRowView::HistoryRowView(const QString &timeText,
                               const QString &polishedText,
                               std::function<void()> onPaste,
                               std::function<void()> onCopy,
                               std::function<void()> onDelete)
    : m_timeText(timeText)
    , m_text(polishedText, interfaceFont(14), maximumLines)
    , m_actions{
          new IconClosureButton(u"arrow.turn.down.right"_s, u"再次粘贴"_s, std::move(onPaste)),
          new IconClosureButton(u"doc.on.doc"_s, u"复制转录"_s, std::move(onCopy)),
          new IconClosureButton(u"trash"_s, u"删除转录"_s, std::move(onDelete)),
      }
{
    setFont(interfaceFont(12, QFont::Medium));
    setAccessibleRole(*this, QAccessible::ListItem, timeText + u' ' + polishedText);
    for (auto *action : m_actions) {
        action->setParent(this);
        action->setOpacity(0);
        action->installEventFilter(this);
    }
    m_fade.setDuration(fadeMilliseconds);
    m_fade.setEndValue(m_actionOpacity);
    m_fade.setEasingCurve(QEasingCurve::OutQuad);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        setActionOpacity(value.toDouble());
    });
}

void HistoryRowView::setHovered(bool isHovered)
{
    if (m_isHovered == isHovered)
        return;
    m_isHovered = isHovered;
    fadeActions();
}

void HistoryRowView::toggleExpanded()
{
    m_isExpanded = !m_isExpanded;
    m_text.setMaximumLines(m_isExpanded ? std::numeric_limits<int>::max() : maximumLines);
    updateGeometry();
    update();
}

std::array<QWidget *, 4> HistoryRowView::focusTargets()
{
    return {this, m_actions[0], m_actions[1], m_actions[2]};
}

int HistoryRowView::heightForWidth(int width) const
{
    m_text.setWidth(std::max(1, width - textLeft - textRightInset));
    return std::max(leastHeight, textTop + m_text.height() + textBottomInset);
}

QSize HistoryRowView::sizeHint() const
{
    return {textLeft + textRightInset, leastHeight};
}

bool HistoryRowView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        setFocusInside(event->type() == QEvent::FocusIn);
    return QWidget::eventFilter(watched, event);
}

void HistoryRowView::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    setFocusInside(true);
}

void HistoryRowView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    setFocusInside(false);
}

void HistoryRowView::mouseReleaseEvent(QMouseEvent *event)
{
    const bool isOnText =
        event->pos().x() >= textLeft && event->pos().x() < width() - textRightInset;
    if (event->button() == Qt::LeftButton && isOnText && rect().contains(event->pos()))
        toggleExpanded();
}

void HistoryRowView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setOpacity(m_actionOpacity);
    painter.fillRect(rect(), Palette::color(SemanticColor::Hover));
    painter.setOpacity(1);
    drawSeparator(painter);
    painter.setPen(Palette::color(SemanticColor::SecondaryLabel));
    painter.drawText(QRect(sideInset, timeTop, timeWidth, height()), Qt::AlignLeft, m_timeText);
    painter.setPen(Palette::color(SemanticColor::Label));
    m_text.draw(painter, QPointF(textLeft, textTop));
    drawFocusFrame(painter, *this);
}

// As thick in every row, whatever fraction of a pixel the row begins at.
void HistoryRowView::drawSeparator(QPainter &painter) const
{
    QPen pen(Palette::color(SemanticColor::Separator, 0.28), std::round(devicePixelRatioF()));
    pen.setCosmetic(true);
    painter.setPen(pen);
    painter.drawLine(QLineF(0, height() - 0.5, width(), height() - 0.5));
}

void HistoryRowView::resizeEvent(QResizeEvent *)
{
    int x = width() - sideInset - actionsWidth;
    for (auto *action : m_actions) {
        action->move(x, actionTop);
        x += actionSize + actionSpacing;
    }
}

void HistoryRowView::setFocusInside(bool isFocusInside)
{
    m_isFocusInside = isFocusInside;
    fadeActions();
}

void HistoryRowView::fadeActions()
{
    const double target = m_isHovered || m_isFocusInside ? 1 : 0;
    if (m_fade.endValue() == target)
        return;
    m_fade.stop();
    m_fade.setStartValue(m_actionOpacity);
    m_fade.setEndValue(target);
    m_fade.start();
}

void HistoryRowView::setActionOpacity(double opacity)
{
    m_actionOpacity = opacity;
    for (auto *action : m_actions)
        action->setOpacity(opacity);
    update();
}
