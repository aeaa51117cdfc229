// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TcpSockets.h"

#include <QDir>

#include <netinet/in.h>
#include <netinet/tcp.h>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

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
    const auto descriptors = QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System);
    for (const auto &name : descriptors) {
        constexpr int on = 1;
        const int descriptor = name.toInt();
        if (isTcp(descriptor))
            ::setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
}
