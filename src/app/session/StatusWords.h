// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

// The words by which the status item's tool tip tells what the application is doing.
namespace StatusWords {

inline constexpr QStringView ready = u"听";
inline constexpr QStringView recording = u"录";
inline constexpr QStringView recognising = u"转";
inline constexpr QStringView polishing = u"整";
inline constexpr QStringView pasting = u"贴";
inline constexpr QStringView error = u"!";

} // namespace StatusWords
