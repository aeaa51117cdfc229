// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>

class QColor;
class QPainter;

// Draws one of the interface's symbols ("house", "trash" …, resources/symbols) in one colour,
// centred in the rectangle with its proportions kept, crisp at every scale factor. An unknown name
// draws nothing.
void drawSymbol(QPainter &painter, const QRectF &rect, const QString &name, const QColor &color);
