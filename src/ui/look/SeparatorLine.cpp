// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SeparatorLine.h"

#include "Palette.h"

#include <QPainter>

SeparatorLine::SeparatorLine()
{
    setFixedHeight(1);
}

void SeparatorLine::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), Palette::color(SemanticColor::Separator));
}
