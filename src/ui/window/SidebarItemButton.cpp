// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SidebarItemButton.h"

#include "FocusFrame.h"
#include "InterfaceFont.h"
#include "Palette.h"
#include "Symbol.h"

#include <QPainter>

namespace {

constexpr int itemHeight = 42;
constexpr qreal cornerRadius = 11;
constexpr int symbolSize = 19;
constexpr int leadingMargin = 16;
constexpr int symbolGap = 13;
constexpr int trailingMargin = 14;

} // namespace

SidebarItemButton::SidebarItemButton(const QString &title,
                                     QString symbolName,
                                     std::function<void()> onClick)
    : m_symbolName(std::move(symbolName))
{
    setText(title);
    setToolTip(title);
    setFont(interfaceFont(15, QFont::DemiBold));
    setCheckable(true);
    setAutoExclusive(true); // to screen readers, one of several
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setFixedHeight(itemHeight);
    connect(this, &QAbstractButton::clicked, this, std::move(onClick));
}

QSize SidebarItemButton::sizeHint() const
{
    return {leadingMargin + symbolSize + symbolGap + fontMetrics().horizontalAdvance(text())
                + trailingMargin,
            itemHeight};
}

// A button's own way would take the other items out of the tab order.
void SidebarItemButton::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void SidebarItemButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Palette::color(SemanticColor::UnemphasizedSelection));
        painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    }
    const auto color =
        Palette::color(isChecked() ? SemanticColor::Label : SemanticColor::SecondaryLabel);
    const QRect symbolRect(leadingMargin, (height() - symbolSize) / 2, symbolSize, symbolSize);
    drawSymbol(painter, symbolRect, m_symbolName, color);

    const auto titleRect =
        rect().adjusted(symbolRect.right() + 1 + symbolGap, 0, -trailingMargin, 0);
    painter.setPen(color);
    painter.drawText(titleRect,
                     Qt::AlignLeading | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, titleRect.width()));
    drawFocusFrame(painter, *this);
}
