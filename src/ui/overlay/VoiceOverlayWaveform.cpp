// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VoiceOverlayWaveform.h"

#include "VoiceOverlayLook.h"

#include <algorithm>
#include <cmath>

using VoiceOverlayLook::waveformRect;

namespace {

constexpr qreal barWidth = 2.5;
constexpr qreal leastHeight = 4;
// Of the rectangle's height, in silence.
constexpr qreal leastShare = 0.22;

} // namespace

std::array<QRectF, 9> VoiceOverlayWaveform::bars(qreal level, qreal phase)
{
    std::array<QRectF, 9> bars;
    constexpr int last = int(bars.size()) - 1;
    constexpr qreal step = (waveformRect.width() - barWidth) / last;
    for (int i = 0; i <= last; ++i) {
        const qreal wave = std::abs(std::sin(phase * 4.2 + i * 0.82));
        const qreal amplitude = 0.58 + 0.42 * wave;
        const qreal falloff = 1 - std::abs(qreal(i) / last - 0.5) * 1.25;
        const qreal share = leastShare + level * amplitude * std::max(0.28, falloff);
        const qreal height = std::max(leastHeight, waveformRect.height() * share);
        bars[size_t(i)] = QRectF(waveformRect.left() + i * step,
                                 waveformRect.center().y() - height / 2,
                                 barWidth,
                                 height);
    }
    return bars;
}

QRect VoiceOverlayWaveform::bounds()
{
    const qreal excess = waveformRect.height() * leastShare / 2;
    return waveformRect.adjusted(0, -excess, 0, excess).toAlignedRect();
}
