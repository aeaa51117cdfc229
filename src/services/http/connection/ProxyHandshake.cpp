// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ProxyHandshake.h"

#include "HttpAnswerReader.h"
#include "HttpError.h"

using namespace Qt::StringLiterals;

namespace {

HttpError refused(const QNetworkProxy &proxy, const QString &reason)
{
    return {
        HttpError::Kind::Network,
        u"The proxy \"%1:%2\" %3."_s.arg(proxy.hostName(), QString::number(proxy.port()), reason)};
}

QByteArray encodedHost(const QUrl &url)
{
    return url.host(QUrl::FullyEncoded).toLatin1();
}

// A tunnel by HTTP's CONNECT.
class ConnectHandshake final : public ProxyHandshake
{
public:
    ConnectHandshake(const QNetworkProxy &proxy, const QUrl &url)
        : m_proxy(proxy)
        , m_target(url.authority(QUrl::FullyEncoded).toLatin1())
    {}

    Step next(QByteArray &received) override
    {
        if (received.isEmpty())
            return {.message = request()};
        m_answer.take({received.constData(), static_cast<size_t>(received.size())});
        received.clear();
        if (!m_answer.isComplete())
            return {};
        if (m_answer.status() / 100 != 2)
            throw refused(m_proxy, u"refused with HTTP %1"_s.arg(m_answer.status()));
        return {.message = {}, .isDone = true};
    }

private:
    [[nodiscard]] QByteArray request() const
    {
        auto head = "CONNECT " + m_target + " HTTP/1.1\r\nHost: " + m_target + "\r\n";
        if (!m_proxy.user().isEmpty())
            head += "Proxy-Authorization: " + basicCredentials(m_proxy.user(), m_proxy.password())
                + "\r\n";
        return head + "\r\n";
    }

    const QNetworkProxy m_proxy;
    const QByteArray m_target;
    HttpAnswerReader m_answer{HttpAnswerReader::Extent::HeadersOnly};
};

// SOCKS version 5 (RFC 1928) with or without a user and a password (RFC 1929); the proxy looks the
// server's name up.
class Socks5Handshake final : public ProxyHandshake
{
public:
    Socks5Handshake(const QNetworkProxy &proxy, const QUrl &url)
        : m_proxy(proxy)
        , m_host(encodedHost(url))
        , m_port(static_cast<quint16>(url.port()))
    {}

    Step next(QByteArray &received) override
    {
        switch (m_stage) {
        case Stage::Greeting:
            m_stage = Stage::Method;
            return {.message = "\x05\x02\x00\x02"_qba};
        case Stage::Method:
            return received.size() < 2 ? Step{} : answerMethod(received);
        case Stage::Password:
            return received.size() < 2 ? Step{} : answerPassword(received);
        case Stage::Connection:
            return received.size() < 5 ? Step{} : answerConnection(received);
        }
        Q_UNREACHABLE();
    }

private:
    enum class Stage { Greeting, Method, Password, Connection };

    static QByteArray counted(const QByteArray &text)
    {
        const auto part = text.first(std::min<qsizetype>(text.size(), 255));
        return static_cast<char>(part.size()) + part;
    }

    Step answerMethod(QByteArray &received)
    {
        const char method = received[1];
        received.remove(0, 2);
        if (method == 0)
            return connection();
        if (method != 2 || m_proxy.user().isEmpty())
            throw refused(m_proxy, u"wants a user and a password"_s);
        m_stage = Stage::Password;
        return {.message = "\x01"_qba + counted(m_proxy.user().toUtf8())
                    + counted(m_proxy.password().toUtf8())};
    }

    Step answerPassword(QByteArray &received)
    {
        if (received[1] != 0)
            throw refused(m_proxy, u"refused the user or the password"_s);
        received.remove(0, 2);
        return connection();
    }

    Step connection()
    {
        m_stage = Stage::Connection;
        return {.message = "\x05\x01\x00\x03"_qba + counted(m_host) + static_cast<char>(m_port >> 8)
                    + static_cast<char>(m_port & 0xff)};
    }

    Step answerConnection(QByteArray &received)
    {
        if (received[1] != 0)
            throw refused(m_proxy, u"refused with SOCKS error %1"_s.arg(quint8(received[1])));
        const auto kind = quint8(received[3]);
        const qsizetype address = kind == 1 ? 4 : kind == 4 ? 16 : 1 + quint8(received[4]);
        const auto size = 4 + address + 2;
        if (received.size() < size)
            return {};
        received.remove(0, size);
        return {.message = {}, .isDone = true};
    }

    const QNetworkProxy m_proxy;
    const QByteArray m_host;
    const quint16 m_port;
    Stage m_stage = Stage::Greeting;
};

bool speaksHttp(const QNetworkProxy &proxy)
{
    return proxy.type() == QNetworkProxy::HttpProxy
        || proxy.type() == QNetworkProxy::HttpCachingProxy;
}

} // namespace

std::unique_ptr<ProxyHandshake> makeProxyHandshake(const QNetworkProxy &proxy, const QUrl &url)
{
    if (proxy.type() == QNetworkProxy::NoProxy || isForwarded(proxy, url))
        return {};
    if (speaksHttp(proxy))
        return std::make_unique<ConnectHandshake>(proxy, url);
    if (proxy.type() == QNetworkProxy::Socks5Proxy)
        return std::make_unique<Socks5Handshake>(proxy, url);
    throw refused(proxy, u"is of a kind that cannot be used"_s);
}

bool isForwarded(const QNetworkProxy &proxy, const QUrl &url)
{
    return speaksHttp(proxy) && url.scheme() == "http"_L1;
}

QByteArray basicCredentials(const QString &user, const QString &password)
{
    return "Basic " + (user + u':' + password).toUtf8().toBase64();
}
