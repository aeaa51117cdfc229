// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TcpPeer.h"

#include <algorithm>
#include <netinet/in.h>

#include <linux/tcp.h>
#include <sys/socket.h>

namespace {

// A failure is ignored: the option only makes things quicker.
void setOption(int socket, int level, int option, int value)
{
    ::setsockopt(socket, level, option, &value, sizeof value);
}

} // namespace

void TcpPeer::watch(int socket)
{
    constexpr int interval = 2; // seconds
    setOption(socket, IPPROTO_TCP, TCP_NODELAY, 1);
    setOption(socket, SOL_SOCKET, SO_KEEPALIVE, 1);
    setOption(socket, IPPROTO_TCP, TCP_KEEPIDLE, interval);
    setOption(socket, IPPROTO_TCP, TCP_KEEPINTVL, interval);
}

void TcpPeer::setSilenceLimit(int socket, std::chrono::milliseconds limit)
{
    setOption(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, static_cast<int>(limit.count()));
}

TcpPeer::State TcpPeer::state(int socket)
{
    tcp_info info{};
    socklen_t size = sizeof info;
    if (::getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) != 0)
        return {};
    return {.acknowledgedBytes = info.tcpi_bytes_acked,
            .sinceHeard = std::chrono::milliseconds(
                std::min(info.tcpi_last_ack_recv, info.tcpi_last_data_recv))};
}
