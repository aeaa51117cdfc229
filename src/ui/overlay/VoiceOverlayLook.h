// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>
#include <QSize>

// The overlay's colours, sizes and places, in logical pixels from its upper left corner.
namespace VoiceOverlayLook {

// A grey level and its opacity, each from 0 to 1.
struct Grey
{
    float white = 0;
    float alpha = 1;

    [[nodiscard]] QColor color() const { return QColor::fromRgbF(white, white, white, alpha); }
};

inline constexpr Grey bubbleFill{0.07F, 0.96F};
inline constexpr Grey bubbleText{0.98F, 0.98F};
inline constexpr Grey recordingPillFill{0.02F, 0.95F};
inline constexpr Grey narrowPillFill{0.04F, 0.94F};
inline constexpr Grey narrowPillText{0.92F, 0.92F};
inline constexpr Grey outline{1, 0.16F};
inline constexpr Grey typingOutline{1, 0.18F};
inline constexpr Grey typingHighlight{0.22F, 0.72F};
inline constexpr Grey microphoneDisc{0.16F, 1};
inline constexpr Grey microphoneStroke{0.88F, 0.94F};
inline constexpr Grey waveformBar{0.95F, 0.95F};
inline constexpr Grey checkDisc{0.93F, 1};
inline constexpr Grey checkStroke{0.08F, 0.92F};

inline constexpr QSize viewSize(240, 76);
inline constexpr QRectF bubbleRect(30, 6, 180, 28);
inline constexpr QRectF recordingPillRect(54, 36, 132, 34);
inline constexpr QRectF narrowPillRect(65, 24, 110, 34);
inline constexpr QRectF waveformRect(102, 44, 42, 18);
inline constexpr QPointF microphoneCentre(77, 53);
inline constexpr QPointF checkCentre(163, 53);
inline constexpr qreal bubbleRadius = 8;
inline constexpr qreal pillRadius = 17;
inline constexpr qreal badgeRadius = 12;
inline constexpr qreal outlineWidth = 1;
inline constexpr qreal glyphWidth = 2;
inline constexpr qreal highlightWidth = 42;
inline constexpr qreal bubbleTextInset = 10;
inline constexpr qreal typingTextInset = 14;
inline constexpr qreal statusTextInset = 12;
inline constexpr int fontSize = 13;

// How far a shadow reaches, and how dark it is.
struct Shadow
{
    qreal blur;
    qreal alpha;
};

inline constexpr Shadow bubbleShadow{7, 0.22};
inline constexpr Shadow recordingPillShadow{6, 0.18};

} // namespace VoiceOverlayLook
