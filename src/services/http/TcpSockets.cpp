// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TcpSockets.h"

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <memory>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <vector>

#include <sys/socket.h>

namespace {

bool isTcp(int descriptor)
{
    int protocol = 0;
    socklen_t size = sizeof protocol;
    return ::getsockopt(descriptor, SOL_SOCKET, SO_PROTOCOL, &protocol, &size) == 0
        && protocol == IPPROTO_TCP;
}

std::vector<int> tcpSockets()
{
    std::vector<int> sockets;
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir("/proc/self/fd"), &::closedir);
    while (const auto *entry = directory ? ::readdir(directory.get()) : nullptr)
        if (const int descriptor = std::atoi(entry->d_name); isTcp(descriptor))
            sockets.push_back(descriptor);
    return sockets;
}

} // namespace

void TcpSockets::sendWithoutDelay()
{
    constexpr int on = 1;
    for (const int socket : tcpSockets())
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

std::chrono::milliseconds TcpSockets::sinceLastReceived()
{
    auto shortest = std::chrono::milliseconds::max();
    for (const int socket : tcpSockets()) {
        tcp_info info{};
        socklen_t size = sizeof info;
        if (::getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) == 0
            && info.tcpi_state == TCP_ESTABLISHED)
            shortest = std::min(shortest, std::chrono::milliseconds(info.tcpi_last_data_recv));
    }
    return shortest;
}
