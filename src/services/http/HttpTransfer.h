// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ConnectionPool.h"
#include "HttpAnswerReader.h"
#include "HttpRequest.h"
#include "HttpResponse.h"

#include <future>

// One request on its way: sends it while it listens for the answer, watches that something moves,
// and fulfils its promise exactly once. It keeps itself alive until then.
class HttpTransfer final : public std::enable_shared_from_this<HttpTransfer>
{
public:
    // The maker of connections and the pool must outlive this object.
    HttpTransfer(boost::asio::io_context &context,
                 ConnectionPool &pool,
                 HttpRequest request,
                 std::unique_ptr<HttpBody> body,
                 std::promise<HttpResponse> promise);

    void start();
    // Ends the transfer with this error, unless it has ended.
    void fail(const std::exception_ptr &error);

private:
    using Clock = std::chrono::steady_clock;
    using ErrorCode = boost::system::error_code;

    void begin(const std::shared_ptr<HttpConnection> &connection, const std::exception_ptr &error);
    void sendMore();
    void partSent(ErrorCode error);
    void receive(ErrorCode error, std::string_view received);
    void connectionEnded(ErrorCode error);
    void deliver();
    void end();
    void watch();
    [[nodiscard]] bool isStuck();

    ConnectionPool &m_pool;
    HttpRequest m_request;
    const std::unique_ptr<HttpBody> m_body;
    std::promise<HttpResponse> m_promise;
    std::shared_ptr<HttpConnection> m_connection; // while there is one
    QByteArray m_part; // of the request, being sent
    HttpAnswerReader m_answer;
    bool m_isSent = false;
    bool m_hasEnded = false;
    boost::asio::steady_timer m_watch;
    Clock::time_point m_lastProgress = Clock::now();
    std::uint64_t m_acknowledgedBytes = 0;
    ErrorCode m_sendingError;
};
