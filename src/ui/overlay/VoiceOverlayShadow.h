// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

// The shadows of the recording shapes, as large as the overlay, in this many device pixels for a
// logical one.
[[nodiscard]] QImage voiceOverlayShadow(qreal pixelRatio);
