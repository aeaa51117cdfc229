// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

class QPainter;
class QStyleOptionSlider;

// A scroll bar that is nothing but a thin thumb.
namespace ThinScrollBar {

// How wide a vertical one is.
inline constexpr int extent = 12;

// Where the thumb is in the rectangle of the scroll bar. Empty when there is nothing to scroll.
[[nodiscard]] QRect thumbRect(const QStyleOptionSlider &option);
void draw(QPainter &painter, const QStyleOptionSlider &option);

} // namespace ThinScrollBar
