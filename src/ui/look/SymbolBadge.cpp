// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SymbolBadge.h"

#include "Palette.h"
#include "Symbol.h"

#include <QPainter>

namespace {

constexpr int diameter = 36;
constexpr qreal symbolSize = 17;

} // namespace

SymbolBadge::SymbolBadge(QString symbolName)
    : m_symbolName(std::move(symbolName))
{
    setFixedSize(diameter, diameter);
}

void SymbolBadge::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Palette::color(SemanticColor::ControlAccent, 0.12));
    painter.drawEllipse(rect());
    QRectF symbolRect(0, 0, symbolSize, symbolSize);
    symbolRect.moveCenter(QRectF(rect()).center());
    drawSymbol(painter, symbolRect, m_symbolName, Palette::color(SemanticColor::ControlAccent));
}
