// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HistoryDateHeaderView.h"

#include "AccessibleRole.h"
#include "InterfaceFont.h"
#include "Palette.h"

#include <QPainter>

namespace {

constexpr int headerHeight = 38;
constexpr int headerInset = 12;

} // namespace

HistoryDateHeaderView::HistoryDateHeaderView(const QString &title)
{
    setFont(interfaceFont(12, QFont::DemiBold));
    setAccessibleRole(*this, QAccessible::Heading, title);
}

QSize HistoryDateHeaderView::sizeHint() const
{
    return {2 * headerInset, headerHeight};
}

void HistoryDateHeaderView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(Palette::color(SemanticColor::SecondaryLabel));
    const auto area = rect().adjusted(headerInset, 0, -headerInset, 0);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter, accessibleName());
}
