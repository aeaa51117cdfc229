// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

// What a recording is: a WAV file of mono 16-bit little-endian samples.
namespace RecordingFormat {

inline constexpr std::size_t headerBytes = 44;
inline constexpr std::uint32_t sampleRate = 16'000; // a second
inline constexpr std::uint16_t bytesPerSample = 2;
inline constexpr std::uint32_t bytesPerSecond = sampleRate * bytesPerSample;

} // namespace RecordingFormat
