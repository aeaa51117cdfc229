// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>

// Becomes the sound server's default microphone, and can speak faster than time: half an hour does
// not take half an hour. Needs PulseAudio.
class FastMicrophone final
{
public:
    FastMicrophone();
    ~FastMicrophone();
    FastMicrophone(const FastMicrophone &) = delete;
    FastMicrophone &operator=(const FastMicrophone &) = delete;

    // Says so many bytes of 16 kHz mono 16-bit sound, as fast as the server takes them.
    void speak(std::uintmax_t bytes) const;

private:
    std::filesystem::path m_pipe;
    int m_descriptor = -1;
};
