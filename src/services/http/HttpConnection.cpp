// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpConnection.h"

#include "TcpPeer.h"

#include <ctime>

using namespace std::chrono_literals;

namespace {

constexpr auto longestIdleTime = 30s;
// Longer than the kernel takes to ask the peer once and once again.
constexpr auto longestSilence = 4500ms;
constexpr auto longestSilenceWhileIdle = 10s;

// The clocks of the standard library stand still while the computer sleeps.
std::chrono::milliseconds sinceBoot()
{
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec));
}

} // namespace

HttpConnection::HttpConnection(boost::asio::io_context &context,
                               HttpAddress origin,
                               OpenedConnection opened)
    : m_origin(std::move(origin))
    , m_opened(std::move(opened))
    , m_expiry(context)
{}

void HttpConnection::start()
{
    release();
    listen();
}

std::chrono::milliseconds HttpConnection::idleTime() const
{
    return sinceBoot() - m_idleSince;
}

bool HttpConnection::isUsable() const
{
    return !m_isClosed && idleTime() < longestIdleTime
        && TcpPeer::state(descriptor()).sinceHeard < longestSilence;
}

void HttpConnection::use(Receiver receiver, std::chrono::milliseconds silenceLimit)
{
    m_expiry.cancel();
    m_receiver = std::move(receiver);
    TcpPeer::setSilenceLimit(descriptor(), silenceLimit);
}

void HttpConnection::release()
{
    m_receiver = {};
    m_idleSince = sinceBoot();
    TcpPeer::setSilenceLimit(descriptor(), longestSilenceWhileIdle);
    m_expiry.expires_after(longestIdleTime);
    m_expiry.async_wait([weak = weak_from_this()](ErrorCode cancelled) {
        if (const auto self = weak.lock(); self && !cancelled && !self->m_receiver)
            self->close();
    });
}

void HttpConnection::write(boost::asio::const_buffer buffer, const NetworkStream::Done &done)
{
    // The stream has to be there until it calls back.
    m_opened.stream->write(
        buffer, [self = shared_from_this(), done](auto error, auto size) { done(error, size); });
}

void HttpConnection::close()
{
    m_isClosed = true;
    m_receiver = {};
    m_expiry.cancel();
    m_opened.stream->close();
}

void HttpConnection::listen()
{
    m_opened.stream->read(boost::asio::buffer(m_buffer),
                          [self = shared_from_this()](ErrorCode error, std::size_t size) {
                              self->receive(error, size);
                          });
}

void HttpConnection::receive(ErrorCode error, std::size_t size)
{
    // A copy: the receiver may end the request, and with it itself.
    if (const auto receiver = m_receiver)
        receiver(error, {m_buffer.data(), size});
    else
        close(); // by the peer, or what it says was not asked for
    if (!m_isClosed && !error)
        listen();
}
