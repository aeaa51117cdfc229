// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clock.h"
#include "DirectoryWatch.h"

#include <filesystem>
#include <string>
#include <vector>

// Wrenfold as the measurements meet it: its command, its files, its recordings. The environment
// variable WRENFOLD names the executable.
namespace Application {

[[nodiscard]] std::vector<std::string> command();
[[nodiscard]] std::filesystem::path logFile();
// Writes a configuration that names the port of this machine for both services, and Control + Alt +
// Space as the hotkey, which no desktop has itself.
void configure(int port);

// Sees the recordings that Wrenfold writes.
class Recordings final
{
public:
    Recordings();

    // The moment at which a recording's first sample was seen in its file. Throws
    // std::runtime_error when none comes.
    Instant waitForFirstSample() const { return waitForBytes(1); }
    // The moment at which a recording had so many bytes of sound.
    Instant waitForBytes(std::uintmax_t count) const;

private:
    std::filesystem::path m_folder;
    DirectoryWatch m_watch;
};

} // namespace Application
