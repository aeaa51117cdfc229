// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clock.h"
#include "DirectoryWatch.h"

#include <fstream>
#include <string>
#include <string_view>

// Follows a text file that another program appends to, from its present end.
class FileTail final
{
public:
    // The file need not exist yet; its directory must.
    explicit FileTail(const std::filesystem::path &file);

    // The moment at which a line with this text was seen; lines up to it are read past. Throws
    // std::runtime_error when none comes.
    Instant waitFor(std::string_view text);

private:
    bool readsPast(std::string_view text);

    std::filesystem::path m_file;
    DirectoryWatch m_watch;
    std::uintmax_t m_position = 0;
};
