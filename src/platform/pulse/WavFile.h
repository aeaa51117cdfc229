// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <span>

// A new WAV file of 16 kHz mono 16-bit sound that grows while it is recorded.
class WavFile final
{
public:
    // Creates the file with mode 0600; never through a link and never over an existing file. Throws
    // LocalizedError when that fails, and leaves no file then.
    explicit WavFile(const QString &path);
    ~WavFile();
    WavFile(const WavFile &) = delete;
    WavFile &operator=(const WavFile &) = delete;

    // Appends sound. After the first failed write (a full disk) what follows is dropped, so that
    // the file holds the beginning without gaps.
    void append(std::span<const std::int16_t> samples);
    // Cuts the file to whole samples, writes the sizes into its header and closes it. Does nothing
    // the second time.
    void finish();

    static constexpr std::size_t headerBytes = 44;
    static constexpr std::uint32_t sampleRate = 16000;
    static constexpr std::uint32_t bytesPerSecond = 32000;

private:
    int m_descriptor = -1;
    std::uint32_t m_dataBytes = 0;
    bool m_isFull = false;
};
