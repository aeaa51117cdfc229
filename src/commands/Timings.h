// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

// How long dictations took, as the log tells.
namespace Timings {

// A table of each stage's milliseconds over the dictations of a log: median and 95th percentile,
// by nearest rank. Those that failed are only counted.
[[nodiscard]] QByteArray table(const QByteArray &log);

} // namespace Timings
