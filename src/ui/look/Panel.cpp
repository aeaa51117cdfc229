// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Panel.h"

#include "Palette.h"

#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr qreal cornerRadius = 8;

} // namespace

Panel::Panel(QWidget *content)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(22, 20, 22, 20);
    layout->addWidget(content);
}

void Panel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Palette::color(SemanticColor::Separator, 0.32));
    painter.setBrush(Palette::color(SemanticColor::TextBackground, 0.78));
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}
