// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DirectoryWatch.h"

#include "Clock.h"

#include <array>
#include <cerrno>
#include <poll.h>
#include <stdexcept>

#include <sys/inotify.h>
#include <system_error>
#include <unistd.h>

DirectoryWatch::DirectoryWatch(const std::filesystem::path &directory)
    : m_descriptor(inotify_init1(IN_CLOEXEC))
{
    if (inotify_add_watch(m_descriptor, directory.c_str(), IN_CREATE | IN_MODIFY | IN_MOVED_TO) < 0)
        throw std::system_error(errno, std::generic_category(), directory.string());
}

DirectoryWatch::~DirectoryWatch()
{
    close(m_descriptor);
}

void DirectoryWatch::waitUntil(const std::function<bool()> &condition,
                               std::chrono::seconds limit) const
{
    const auto deadline = Clock::now() + limit;
    while (!condition()) {
        const auto left = milliseconds(Clock::now(), deadline);
        pollfd changed{.fd = m_descriptor, .events = POLLIN, .revents = 0};
        if (left <= 0 || poll(&changed, 1, static_cast<int>(left) + 1) == 0)
            throw std::runtime_error("waited in vain for a file to change");
        std::array<char, 4096> events{};
        if (read(m_descriptor, events.data(), events.size()) < 0)
            throw std::system_error(errno, std::generic_category(), "inotify");
    }
}
