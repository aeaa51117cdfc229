// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpWorker.h"

#include "HttpTransfer.h"
#include "SystemProxyFactory.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QThread>

using namespace Qt::StringLiterals;

// Without a thread at first: run() takes it over, with what was posted until then.
HttpWorker::HttpWorker(std::optional<QSslConfiguration> tls)
    : m_tls(std::move(tls))
{
    moveToThread(nullptr);
}

HttpWorker::~HttpWorker() = default;

bool HttpWorker::post(Work work)
{
    return enqueue(std::move(work), false);
}

void HttpWorker::stop()
{
    static_cast<void>(enqueue([this] { m_loop->quit(); }, true));
}

bool HttpWorker::enqueue(Work work, bool isLast)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_isClosed)
            return false;
        m_isClosed = isLast;
        m_work.push_back(std::move(work));
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    return true;
}

void HttpWorker::run()
{
    moveToThread(QThread::currentThread());
    QEventLoop loop;
    m_loop = &loop;
    loop.exec();
    m_transfers.clear();
    m_manager.reset();
    moveToThread(nullptr);
}

bool HttpWorker::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    runOne();
    return true;
}

void HttpWorker::runOne()
{
    Work work;
    {
        const std::lock_guard lock(m_mutex);
        if (m_work.empty())
            return;
        work = std::move(m_work.front());
        m_work.pop_front();
    }
    work();
}

void HttpWorker::startTransfer(const HttpRequest &request, std::promise<HttpResponse> promise)
{
    std::unique_ptr<HttpBody> body;
    try {
        body = request.openBody();
    } catch (...) {
        promise.set_exception(std::current_exception());
        return;
    }
    auto network = networkRequest(request.url);
    for (const auto &[name, value] : request.headers)
        network.setRawHeader(name, value);
    network.setRawHeader("Accept-Encoding", "identity");
    network.setRawHeader("Accept-Language", "zh-CN,zh;q=0.9,en;q=0.8");
    network.setRawHeader("User-Agent", "Wrenfold");
    network.setHeader(QNetworkRequest::ContentLengthHeader, body->size());

    auto transfer = std::make_unique<HttpTransfer>(
        std::move(body), request.inactivityLimit, std::move(promise));
    auto *started = m_transfers.emplace_back(std::move(transfer)).get();
    const auto sweep = [this] {
        std::erase_if(m_transfers, [](const auto &each) { return each->hasEnded(); });
    };
    connect(started, &HttpTransfer::ended, this, sweep, Qt::QueuedConnection);
    started->start(manager(), network);
}

void HttpWorker::openAhead(const QUrl &url)
{
    // The scheme by which the library opens a connection and sends nothing. Its own function for
    // that would look for a connection of another kind than our requests use.
    QUrl target;
    target.setScheme("preconnect-"_L1 + url.scheme());
    target.setHost(url.host());
    target.setPort(url.port(url.scheme() == "https"_L1 ? 443 : 80));
    auto *reply = manager().get(networkRequest(target));
    connect(reply, &QNetworkReply::finished, reply, &QObject::deleteLater);
}

QNetworkAccessManager &HttpWorker::manager()
{
    if (!m_manager) {
        m_manager = std::make_unique<QNetworkAccessManager>();
        m_manager->setProxyFactory(new SystemProxyFactory);
    }
    return *m_manager;
}

QNetworkRequest HttpWorker::networkRequest(const QUrl &url) const
{
    QNetworkRequest request(url);
    if (m_tls)
        request.setSslConfiguration(*m_tls);
    using Request = QNetworkRequest;
    request.setAttribute(Request::Http2AllowedAttribute, false);
    request.setAttribute(Request::RedirectPolicyAttribute, Request::ManualRedirectPolicy);
    request.setAttribute(Request::CacheLoadControlAttribute, Request::AlwaysNetwork);
    request.setAttribute(Request::CacheSaveControlAttribute, false);
    request.setAttribute(Request::CookieLoadControlAttribute, Request::Manual);
    request.setAttribute(Request::CookieSaveControlAttribute, Request::Manual);
    request.setAttribute(Request::DoNotBufferUploadDataAttribute, true);
    return request;
}
