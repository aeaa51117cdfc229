// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <array>

// The bars of the level meter.
namespace VoiceOverlayWaveform {

// Where the bars are for a level from 0 to 1, in logical pixels of the overlay.
[[nodiscard]] std::array<QRectF, 9> bars(qreal level, qreal phase);
// What the bars can cover at most. Loud ones are higher than the waveform's own rectangle.
[[nodiscard]] QRect bounds();

} // namespace VoiceOverlayWaveform
