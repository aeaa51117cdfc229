// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ConnectionOpener.h"

#include "HttpError.h"
#include "LocalPeer.h"

#include <system_error>

using namespace Qt::StringLiterals;

namespace {

HttpError::Kind kindOf(const boost::system::error_code &error)
{
    if (error == boost::asio::error::timed_out)
        return HttpError::Kind::TimedOut;
    return error.category() == boost::asio::error::get_ssl_category() ? HttpError::Kind::Tls
                                                                      : HttpError::Kind::Network;
}

} // namespace

ConnectionOpener::ConnectionOpener(ConnectionMakers &makers, HttpAddress origin, Done done)
    : m_makers(makers)
    , m_origin(std::move(origin))
    , m_done(std::move(done))
    , m_deadline(makers.context)
    , m_proxy(QNetworkProxy::NoProxy)
{}

void ConnectionOpener::start()
{
    const auto alive = shared_from_this(); // a failure makes the owner let go of it
    startDeadline();
    const auto found = [weak = weak_from_this()](const Route &route, const auto &error) {
        const auto self = weak.lock();
        if (!self || !self->m_done)
            return;
        if (error)
            self->fail(error);
        else
            self->connectTo(route);
    };
    try {
        m_makers.lookup.find(m_origin, found);
    } catch (const std::system_error &) {
        fail(std::current_exception());
    }
}

void ConnectionOpener::abandon()
{
    m_done = {};
    m_deadline.cancel();
    if (m_race)
        m_race->abandon();
    if (m_stream)
        m_stream->close();
}

NetworkStream::Done ConnectionOpener::then(void (ConnectionOpener::*step)(std::size_t))
{
    return [self = shared_from_this(), step](ErrorCode error, std::size_t size) {
        if (!self->m_done)
            return;
        try {
            if (error)
                self->fail(error);
            else
                (self.get()->*step)(size);
        } catch (...) {
            self->fail(std::current_exception());
        }
    };
}

void ConnectionOpener::startDeadline()
{
    m_deadline.expires_after(std::chrono::seconds(20));
    m_deadline.async_wait([weak = weak_from_this()](ErrorCode cancelled) {
        if (const auto self = weak.lock(); self && !cancelled && self->m_done)
            self->fail(boost::asio::error::timed_out);
    });
}

void ConnectionOpener::connectTo(const Route &route)
{
    startDeadline();
    m_proxy = route.proxy;
    const auto check = then(&ConnectionOpener::checkPeer);
    const auto connected = [self = shared_from_this(), check](ErrorCode error, auto socket) {
        if (!error)
            self->m_stream = std::make_unique<NetworkStream>(std::move(socket));
        check(error, 0);
    };
    m_race = std::make_shared<ConnectRace>(m_makers.context, route.addresses, connected);
    m_race->start();
}

void ConnectionOpener::checkPeer(std::size_t /*ignored*/)
{
    const auto &path = m_origin.socketPath;
    if (!path.isEmpty() && !LocalPeer::isThisUser(m_stream->descriptor()))
        throw HttpError(HttpError::Kind::Network,
                        u"Nothing is sent to \"%1\": another user listens there."_s.arg(path));
    speakToProxy(0);
}

void ConnectionOpener::speakToProxy(std::size_t received)
{
    startDeadline();
    if (!m_handshake)
        m_handshake = makeProxyHandshake(m_proxy, m_origin.url);
    if (!m_handshake) {
        encrypt();
        return;
    }
    m_fromProxy.append(m_buffer.data(), static_cast<qsizetype>(received));
    auto [message, isDone] = m_handshake->next(m_fromProxy);
    m_toProxy = std::move(message);
    if (isDone)
        encrypt();
    else
        m_stream->write(
            boost::asio::buffer(m_toProxy.constData(), static_cast<std::size_t>(m_toProxy.size())),
            then(&ConnectionOpener::listenToProxy));
}

void ConnectionOpener::listenToProxy(std::size_t /*sent*/)
{
    m_stream->read(boost::asio::buffer(m_buffer), then(&ConnectionOpener::speakToProxy));
}

void ConnectionOpener::encrypt()
{
    if (m_origin.url.scheme() != "https"_L1) {
        finish(0);
        return;
    }
    const auto finishOrFail = then(&ConnectionOpener::finish);
    m_stream->encrypt(m_makers.tls.get(),
                      m_origin.url.host(QUrl::FullyEncoded).toStdString(),
                      [finishOrFail](ErrorCode error) { finishOrFail(error, 0); });
}

void ConnectionOpener::finish(std::size_t /*ignored*/)
{
    m_deadline.cancel();
    std::exchange(m_done, {})({std::move(m_stream), m_proxy}, {});
}

void ConnectionOpener::fail(const std::exception_ptr &error)
{
    const auto done = m_done;
    abandon();
    done({}, error);
}

void ConnectionOpener::fail(ErrorCode error)
{
    auto reason = m_stream ? m_stream->certificateError() : std::string();
    if (reason.empty())
        reason = error.message();
    const auto way = m_proxy.type() == QNetworkProxy::NoProxy
        ? QString()
        : u" through the proxy \"%1:%2\""_s.arg(m_proxy.hostName(),
                                                QString::number(m_proxy.port()));
    const auto &socket = m_origin.socketPath;
    fail(std::make_exception_ptr(HttpError(
        kindOf(error),
        u"No connection to \"%1\"%2: %3."_s.arg(socket.isEmpty() ? m_origin.url.host() : socket,
                                                way,
                                                QString::fromStdString(reason)))));
}
