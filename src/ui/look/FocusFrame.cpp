// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "FocusFrame.h"

#include <QStyleOptionFocusRect>
#include <QWidget>

void drawFocusFrame(QPainter &painter, const QWidget &widget)
{
    if (!widget.hasFocus() || !widget.window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    QStyleOptionFocusRect option;
    option.initFrom(&widget);
    widget.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &widget);
}
