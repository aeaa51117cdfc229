// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VoiceOverlayShadow.h"

#include "VoiceOverlayLook.h"

#include <algorithm>
#include <cmath>

using namespace VoiceOverlayLook;

namespace {

// Distance from the point to the outline of the rounded rectangle; negative inside.
qreal distanceToOutline(const QPointF &point, const QRectF &rect, qreal radius)
{
    const auto offset = point - rect.center();
    const qreal x = std::abs(offset.x()) - rect.width() / 2 + radius;
    const qreal y = std::abs(offset.y()) - rect.height() / 2 + radius;
    return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - radius;
}

// Of a black shadow one pixel below the shape. The blur radius is twice the Gaussian's deviation.
qreal alphaAt(const QPointF &point, const QRectF &rect, qreal radius, const Shadow &shadow)
{
    const qreal distance = distanceToOutline(point, rect.translated(0, 1), radius);
    return shadow.alpha * std::erfc(distance / (shadow.blur / 2 * std::sqrt(2.0))) / 2;
}

} // namespace

QImage voiceOverlayShadow(qreal pixelRatio)
{
    QImage image((QSizeF(viewSize) * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const auto point = QPointF(x + 0.5, y + 0.5) / pixelRatio;
            const qreal clear = (1 - alphaAt(point, bubbleRect, bubbleRadius, bubbleShadow))
                * (1 - alphaAt(point, recordingPillRect, pillRadius, recordingPillShadow));
            image.setPixel(x, y, qRgba(0, 0, 0, qRound(255 * (1 - clear))));
        }
    }
    return image;
}
