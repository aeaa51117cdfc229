// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <thread>
#include <vector>

// Becomes the sound server's default microphone. What it says reaches the server at once, unlike
// the sound of a null sink, which comes in blocks of up to 50 ms; and it can speak faster than
// time, so that half an hour does not take half an hour. Needs PulseAudio.
class FastMicrophone final
{
public:
    FastMicrophone();
    ~FastMicrophone();
    FastMicrophone(const FastMicrophone &) = delete;
    FastMicrophone &operator=(const FastMicrophone &) = delete;

    // Says so many bytes of 16 kHz mono 16-bit sound, as fast as the server takes them.
    void speak(std::uintmax_t bytes) const;
    // Talks in real time, in blocks of 2 ms, until it is destroyed.
    void talk();

private:
    void say(const std::vector<char> &block) const;

    std::filesystem::path m_pipe;
    int m_descriptor = -1;
    std::jthread m_talker;
};
