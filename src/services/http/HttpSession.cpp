// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpSession.h"

#include "HttpError.h"
#include "HttpURL.h"
#include "HttpWorker.h"

#include <algorithm>
#include <future>

using namespace Qt::StringLiterals;

namespace {

// A value with a line break would be more headers, one with other bytes is read differently by
// every server. The value itself is not named: it may be a key.
void checkHeader(const QByteArray &name, const QByteArray &value)
{
    const auto isPrintable = [](char c) { return c >= ' ' && c <= '~'; };
    if (!std::all_of(value.begin(), value.end(), isPrintable))
        throw HttpError(
            HttpError::Kind::InvalidRequest,
            u"The value of the header \"%1\" contains characters that cannot be sent."_s.arg(
                QString::fromLatin1(name)));
}

HttpError closedError()
{
    return {HttpError::Kind::Closed, u"The network session is closed."_s};
}

} // namespace

HttpSession::HttpSession(const std::optional<QSslConfiguration> &tls)
    : m_worker(std::make_unique<HttpWorker>(tls))
    , m_thread([worker = m_worker.get()] { worker->run(); })
{}

HttpSession::~HttpSession()
{
    close();
}

HttpResponse HttpSession::send(const HttpRequest &request)
{
    for (const auto &[name, value] : request.headers)
        checkHeader(name, value);
    const auto promise = std::make_shared<std::promise<HttpResponse>>();
    auto answer = promise->get_future();
    const auto start = [this, &request, promise] {
        m_worker->startTransfer(request, std::move(*promise));
    };
    if (!m_worker->post(start))
        throw closedError();
    return answer.get();
}

void HttpSession::openAhead(const QUrl &url)
{
    if (isHttpURL(url))
        static_cast<void>(m_worker->post([this, url] { m_worker->openAhead(url); }));
}

void HttpSession::close()
{
    m_worker->stop();
    const std::lock_guard lock(m_joinMutex);
    if (m_thread.joinable())
        m_thread.join();
}
