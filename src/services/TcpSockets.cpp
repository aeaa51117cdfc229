// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TcpSockets.h"

#include <cstdlib>
#include <dirent.h>
#include <memory>
#include <netinet/in.h>
#include <netinet/tcp.h>

#include <sys/socket.h>

namespace {

bool isTcp(int descriptor)
{
    int protocol = 0;
    socklen_t size = sizeof protocol;
    return ::getsockopt(descriptor, SOL_SOCKET, SO_PROTOCOL, &protocol, &size) == 0
        && protocol == IPPROTO_TCP;
}

} // namespace

void TcpSockets::sendWithoutDelay()
{
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir("/proc/self/fd"), &::closedir);
    while (const auto *entry = directory ? ::readdir(directory.get()) : nullptr) {
        constexpr int on = 1;
        const int descriptor = std::atoi(entry->d_name);
        if (isTcp(descriptor))
            ::setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
}
