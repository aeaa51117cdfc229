// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "FastMicrophone.h"

#include "ChildProcess.h"

#include <cerrno>
#include <cstdlib>
#include <vector>

#include <fcntl.h>
#include <system_error>
#include <unistd.h>

FastMicrophone::FastMicrophone()
    : m_pipe(std::filesystem::path(std::getenv("XDG_RUNTIME_DIR")) / "microphone.pipe")
{
    run({"pactl",
         "load-module",
         "module-pipe-source",
         "source_name=fast",
         "format=s16le",
         "rate=16000",
         "channels=1",
         "file=" + m_pipe.string()});
    run({"pactl", "set-default-source", "fast"});
    m_descriptor = open(m_pipe.c_str(), O_WRONLY | O_CLOEXEC);
    if (m_descriptor < 0)
        throw std::system_error(errno, std::generic_category(), m_pipe.string());
}

FastMicrophone::~FastMicrophone()
{
    close(m_descriptor);
}

void FastMicrophone::speak(std::uintmax_t bytes) const
{
    std::vector<char> block(640);
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i] = static_cast<char>(i * 7);
    for (std::uintmax_t said = 0; said < bytes; said += block.size()) {
        if (write(m_descriptor, block.data(), block.size()) < 0)
            throw std::system_error(errno, std::generic_category(), "microphone");
    }
}
