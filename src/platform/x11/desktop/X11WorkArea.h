// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

class QScreen;

// What panels leave free of the monitor. Qt knows it of a single monitor only; of several, the
// panels' own reservations are looked up, in a round trip or two.
[[nodiscard]] QRect workArea(const QScreen &screen);
