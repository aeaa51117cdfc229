// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "FileTail.h"

#include <stdexcept>

FileTail::FileTail(const std::filesystem::path &file)
    : m_file(file)
    , m_watch(file.parent_path())
{
    if (std::filesystem::exists(file))
        m_position = std::filesystem::file_size(file);
}

Instant FileTail::waitFor(std::string_view text)
{
    try {
        m_watch.waitUntil([&] { return readsPast(text); });
    } catch (const std::runtime_error &) {
        throw std::runtime_error(m_file.string() + " does not say \"" + std::string(text) + '"');
    }
    return Clock::now();
}

bool FileTail::readsPast(std::string_view text)
{
    std::ifstream stream(m_file);
    stream.seekg(static_cast<std::streamoff>(m_position));
    for (std::string line; std::getline(stream, line) && !stream.eof();) {
        m_position += line.size() + 1;
        if (line.find(text) != std::string::npos)
            return true;
    }
    return false;
}
