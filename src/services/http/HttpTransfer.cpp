// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpTransfer.h"

#include "HttpError.h"
#include "HttpRequestHead.h"
#include "TcpPeer.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

std::exception_ptr makeError(HttpError::Kind kind, const QString &description)
{
    return std::make_exception_ptr(HttpError(kind, description));
}

std::exception_ptr broken(const boost::system::error_code &error)
{
    return makeError(HttpError::Kind::Network,
                     u"The connection ended before the answer was complete: %1."_s.arg(
                         QString::fromStdString(error.message())));
}

std::exception_ptr timedOut()
{
    return makeError(HttpError::Kind::TimedOut, u"The request timed out."_s);
}

} // namespace

HttpTransfer::HttpTransfer(boost::asio::io_context &context,
                           ConnectionPool &pool,
                           HttpRequest request,
                           std::unique_ptr<HttpBody> body,
                           std::promise<HttpResponse> promise)
    : m_pool(pool)
    , m_request(std::move(request))
    , m_body(std::move(body))
    , m_promise(std::move(promise))
    , m_watch(context)
{}

void HttpTransfer::start()
{
    watch();
    m_pool.take(originOf(m_request.address),
                [self = shared_from_this()](const auto &connection, const auto &error) {
                    self->begin(connection, error);
                });
}

void HttpTransfer::fail(const std::exception_ptr &error)
{
    if (m_hasEnded)
        return;
    if (m_connection)
        m_connection->close();
    end();
    m_promise.set_exception(error);
}

void HttpTransfer::begin(const std::shared_ptr<HttpConnection> &connection,
                         const std::exception_ptr &error)
{
    if (error) {
        fail(error);
        return;
    }
    if (m_hasEnded) {
        m_pool.keep(connection);
        return;
    }
    m_connection = connection;
    m_lastProgress = Clock::now();
    m_acknowledgedBytes = TcpPeer::state(connection->descriptor()).acknowledgedBytes;
    connection->use([self = shared_from_this()](
                        auto failure, auto received) { self->receive(failure, received); },
                    m_request.inactivityLimit);
    m_part = requestHead(m_request, m_body->size(), connection->proxy());
    sendMore();
}

void HttpTransfer::sendMore()
{
    constexpr qsizetype limit = 64 * 1024;
    const auto before = m_part.size();
    m_part.resize(before + limit);
    try {
        m_part.resize(before + m_body->read(m_part.data() + before, limit));
    } catch (...) {
        fail(std::current_exception());
        return;
    }
    m_isSent = m_part.isEmpty();
    if (!m_isSent)
        m_connection->write(
            boost::asio::buffer(m_part.constData(), static_cast<std::size_t>(m_part.size())),
            [self = shared_from_this()](ErrorCode error, auto) { self->partSent(error); });
}

void HttpTransfer::partSent(ErrorCode error)
{
    if (m_hasEnded)
        return;
    m_part.clear();
    m_lastProgress = Clock::now(); // what a unix socket took, its peer has had to make room for
    // A server that has enough of a request says why before it closes: that is still to be read.
    if (!error) {
        sendMore();
        return;
    }
    m_sendingError = error;
    m_request.inactivityLimit = std::min<std::chrono::milliseconds>(m_request.inactivityLimit, 1s);
}

void HttpTransfer::receive(ErrorCode error, std::string_view received)
{
    m_lastProgress = Clock::now();
    try {
        m_answer.take(received);
        if (error)
            connectionEnded(error);
        else if (m_answer.isComplete())
            deliver();
    } catch (const HttpError &) {
        fail(std::current_exception());
    }
}

void HttpTransfer::connectionEnded(ErrorCode error)
{
    // Many servers end TLS by closing the connection without a farewell.
    if (error == boost::asio::error::eof || error == boost::asio::ssl::error::stream_truncated)
        m_answer.takeEnd();
    if (m_answer.isComplete() || m_answer.status() >= 300)
        deliver(); // of an answer that tells of an error the status is what counts
    else if (error == boost::asio::error::timed_out)
        fail(timedOut());
    else
        fail(broken(error));
}

void HttpTransfer::deliver()
{
    if (m_isSent && m_answer.canFollow()) {
        m_connection->release();
        m_pool.keep(m_connection);
    } else {
        m_connection->close();
    }
    end();
    m_promise.set_value({m_answer.status(), m_answer.headers(), m_answer.body()});
}

void HttpTransfer::end()
{
    m_hasEnded = true;
    m_connection.reset();
    m_watch.cancel();
}

void HttpTransfer::watch()
{
    const auto interval =
        std::clamp<std::chrono::milliseconds>(m_request.inactivityLimit / 20, 10ms, 1s);
    m_watch.expires_after(interval);
    m_watch.async_wait([self = shared_from_this()](ErrorCode /*cancelled*/) {
        if (self->m_hasEnded)
            return;
        if (self->isStuck())
            self->fail(self->m_sendingError ? broken(self->m_sendingError) : timedOut());
        else
            self->watch();
    });
}

bool HttpTransfer::isStuck()
{
    const auto now = Clock::now();
    if (m_connection) {
        // A peer that is there answers the kernel's questions, however long the service takes.
        constexpr auto longestUnheard = 20s;
        const auto peer = TcpPeer::state(m_connection->descriptor());
        if (peer.sinceHeard > longestUnheard)
            return true;
        if (std::exchange(m_acknowledgedBytes, peer.acknowledgedBytes) != peer.acknowledgedBytes)
            m_lastProgress = now;
    }
    return now - m_lastProgress >= m_request.inactivityLimit;
}
