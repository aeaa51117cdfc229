// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "FastMicrophone.h"

#include "ChildProcess.h"
#include "Clock.h"

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <system_error>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

std::vector<char> soundOf(std::chrono::milliseconds duration)
{
    constexpr std::size_t bytesPerMillisecond = 32;
    std::vector<char> sound(bytesPerMillisecond * static_cast<std::size_t>(duration.count()));
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = static_cast<char>(i * 7);
    return sound;
}

} // namespace

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
    m_talker = {}; // says its last block
    close(m_descriptor);
}

void FastMicrophone::speak(std::uintmax_t bytes) const
{
    const auto block = soundOf(20ms);
    for (std::uintmax_t said = 0; said < bytes; said += block.size())
        say(block);
}

void FastMicrophone::talk()
{
    m_talker = std::jthread([this](const std::stop_token &stop) {
        constexpr auto interval = 2ms;
        const auto block = soundOf(interval);
        for (auto next = Clock::now(); !stop.stop_requested(); next += interval) {
            say(block);
            std::this_thread::sleep_until(next);
        }
    });
}

void FastMicrophone::say(const std::vector<char> &block) const
{
    if (write(m_descriptor, block.data(), block.size()) < 0)
        throw std::system_error(errno, std::generic_category(), "microphone");
}
