// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ThinScrollBar.h"

#include "Palette.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>

namespace {

constexpr int minThumbLength = 28;
constexpr qreal margin = 2;

} // namespace

QRect ThinScrollBar::thumbRect(const QStyleOptionSlider &option)
{
    const auto &track = option.rect;
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const int range = option.maximum - option.minimum;
    if (range <= 0)
        return {};
    const int available = isHorizontal ? track.width() : track.height();
    const auto whole = qint64(range) + option.pageStep;
    const int length = std::min(
        available, std::max(minThumbLength, int(qint64(available) * option.pageStep / whole)));
    const int start = QStyle::sliderPositionFromValue(option.minimum,
                                                      option.maximum,
                                                      option.sliderPosition,
                                                      available - length,
                                                      option.upsideDown);
    return isHorizontal ? QRect(track.x() + start, track.y(), length, track.height())
                        : QRect(track.x(), track.y() + start, track.width(), length);
}

void ThinScrollBar::draw(QPainter &painter, const QStyleOptionSlider &option)
{
    const auto thumb = QRectF(thumbRect(option)).adjusted(margin, margin, -margin, -margin);
    if (thumb.isEmpty())
        return;
    const bool isHeld = option.activeSubControls == QStyle::SC_ScrollBarSlider;
    const auto radius = std::min(thumb.width(), thumb.height()) / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Palette::color(SemanticColor::Label, isHeld ? 0.5 : 0.3));
    painter.drawRoundedRect(thumb, radius, radius);
    painter.restore();
}
