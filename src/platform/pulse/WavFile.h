// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <span>

// A new file in RecordingFormat that grows while it is recorded.
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
    // Whether sound was dropped.
    [[nodiscard]] bool isFull() const { return m_isFull; }
    // Cuts the file to whole samples, writes the sizes into its header and closes it. Does nothing
    // the second time.
    void finish();

private:
    int m_descriptor = -1;
    std::uint32_t m_dataBytes = 0;
    bool m_isFull = false;
};
