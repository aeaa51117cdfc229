// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpSession.h"

#include "HttpError.h"
#include "HttpRequestHead.h"
#include "HttpTransfer.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>

using namespace Qt::StringLiterals;

// The network thread's side: everything but post() and stop() runs there.
class HttpSession::Engine
{
public:
    // Ends with stop().
    void run()
    {
        const auto guard = boost::asio::make_work_guard(m_makers.context);
        m_makers.context.run();
    }

    // False, and dropped, once stopped.
    template<typename Work>
    [[nodiscard]] bool post(Work work)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_isStopped)
            boost::asio::post(m_makers.context, std::move(work));
        return !m_isStopped;
    }

    // After what was posted, fails what is in flight as cancelled.
    void stop()
    {
        const std::lock_guard lock(m_mutex);
        if (!std::exchange(m_isStopped, true))
            boost::asio::post(m_makers.context, [this] { endAll(); });
    }

    void start(const HttpRequest &request,
               std::unique_ptr<HttpBody> body,
               std::promise<HttpResponse> promise)
    {
        std::erase_if(m_transfers, [](const auto &each) { return each.expired(); });
        const auto transfer = std::make_shared<HttpTransfer>(
            m_makers.context, m_pool, request, std::move(body), std::move(promise));
        m_transfers.push_back(transfer);
        transfer->start();
    }

    void openAhead(const HttpAddress &address) { m_pool.openAhead(originOf(address)); }

private:
    void endAll()
    {
        const auto cancelled = std::make_exception_ptr(
            HttpError(HttpError::Kind::Cancelled, u"The request was cancelled."_s));
        for (const auto &each : m_transfers)
            if (const auto transfer = each.lock())
                transfer->fail(cancelled);
        m_pool.close();
        m_makers.context.stop();
    }

    ConnectionMakers m_makers;
    ConnectionPool m_pool{m_makers};
    std::vector<std::weak_ptr<HttpTransfer>> m_transfers;
    std::mutex m_mutex;
    bool m_isStopped = false; // guarded by m_mutex
};

HttpSession::HttpSession()
    : m_engine(std::make_unique<Engine>())
    , m_thread([engine = m_engine.get()] { engine->run(); })
{}

HttpSession::~HttpSession()
{
    close();
}

HttpResponse HttpSession::send(const HttpRequest &request)
{
    checkHeaders(request);
    std::promise<HttpResponse> promise;
    auto answer = promise.get_future();
    const auto isAccepted = m_engine->post(
        [this, request, body = request.openBody(), promise = std::move(promise)]() mutable {
            m_engine->start(request, std::move(body), std::move(promise));
        });
    if (!isAccepted)
        throw HttpError(HttpError::Kind::Closed, u"The network session is closed."_s);
    return answer.get();
}

void HttpSession::openAhead(const HttpAddress &address)
{
    if (isHttp(address))
        static_cast<void>(m_engine->post([this, address] { m_engine->openAhead(address); }));
}

void HttpSession::close()
{
    m_engine->stop();
    const std::lock_guard lock(m_joinMutex);
    if (m_thread.joinable())
        m_thread.join();
}
