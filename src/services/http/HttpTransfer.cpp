// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpTransfer.h"

#include "TcpSockets.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

HttpError timedOut()
{
    return {HttpError::Kind::TimedOut, u"The request timed out."_s};
}

// An answer with an error status is an answer; what breaks the exchange itself is a failure. That
// the body cannot be sent again, as these two statuses ask for, is none.
bool isFailure(QNetworkReply::NetworkError error, int status)
{
    if (error == QNetworkReply::ContentReSendError)
        return status != 307 && status != 308;
    if (error == QNetworkReply::ProxyAuthenticationRequiredError)
        return status != 407;
    return error != QNetworkReply::NoError
        && (status < 400 || error < QNetworkReply::ContentAccessDenied
            || error == QNetworkReply::ProtocolFailure);
}

HttpError failureOf(const QNetworkReply &reply)
{
    switch (reply.error()) {
    case QNetworkReply::TimeoutError:
    case QNetworkReply::ProxyTimeoutError:
        return timedOut();
    case QNetworkReply::SslHandshakeFailedError:
        return {HttpError::Kind::Tls, reply.errorString()};
    case QNetworkReply::ContentReSendError:
        return {HttpError::Kind::Network, u"The connection was closed before an answer came."_s};
    default:
        return {HttpError::Kind::Network, reply.errorString()};
    }
}

} // namespace

HttpTransfer::HttpTransfer(std::unique_ptr<HttpBody> body,
                           std::chrono::milliseconds inactivityLimit,
                           std::promise<HttpResponse> promise)
    : m_body(std::move(body))
    , m_inactivityLimit(inactivityLimit)
    , m_promise(std::move(promise))
{
    m_inactivityTimer.setTimerType(Qt::PreciseTimer);
    m_inactivityTimer.setSingleShot(true);
    connect(&m_inactivityTimer, &QTimer::timeout, this, &HttpTransfer::checkInactivity);
    connect(m_body.get(), &HttpBody::progressed, this, &HttpTransfer::noteProgress);
    // Queued: the reply must not be aborted while it is reading the body.
    const auto giveUp = [this] {
        fail(std::make_exception_ptr(LocalizedError(m_body->failure())));
    };
    connect(m_body.get(), &HttpBody::failed, this, giveUp, Qt::QueuedConnection);
}

HttpTransfer::~HttpTransfer()
{
    fail(std::make_exception_ptr(
        HttpError(HttpError::Kind::Cancelled, u"The request was cancelled."_s)));
}

void HttpTransfer::start(QNetworkAccessManager &manager, const QNetworkRequest &request)
{
    m_reply.reset(manager.post(request, m_body.get()));
    connect(m_reply.get(), &QNetworkReply::readyRead, this, &HttpTransfer::takeReceived);
    connect(m_reply.get(), &QNetworkReply::metaDataChanged, this, &HttpTransfer::noteProgress);
    connect(m_reply.get(), &QNetworkReply::finished, this, &HttpTransfer::finish);
    // The first part of the request is out: only now is its connection known to exist.
    connect(m_reply.get(), &QNetworkReply::requestSent, this, &TcpSockets::sendWithoutDelay);
    noteProgress();
    m_inactivityTimer.start(m_inactivityLimit);
}

void HttpTransfer::fail(const std::exception_ptr &error)
{
    if (std::exchange(m_hasEnded, true))
        return;
    m_inactivityTimer.stop();
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
    }
    m_promise.set_exception(error);
    emit ended();
}

void HttpTransfer::takeReceived()
{
    noteProgress();
    m_received += m_reply->readAll();
}

void HttpTransfer::checkInactivity()
{
    if (const auto silence = TcpSockets::sinceLastReceived(); silence < m_inactivityLimit)
        m_lastProgress = std::max(m_lastProgress, Clock::now() - silence);
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(
        m_lastProgress + m_inactivityLimit - Clock::now());
    if (left.count() > 0)
        m_inactivityTimer.start(left);
    else
        fail(std::make_exception_ptr(timedOut()));
}

void HttpTransfer::finish()
{
    if (m_hasEnded)
        return;
    takeReceived();
    const auto status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (!m_body->failure().isEmpty())
        return; // the body's own report is on its way
    if (isFailure(m_reply->error(), status)) {
        fail(std::make_exception_ptr(failureOf(*m_reply)));
        return;
    }
    m_hasEnded = true;
    m_inactivityTimer.stop();
    m_promise.set_value({status, m_reply->rawHeaderPairs(), std::move(m_received)});
    emit ended();
}
