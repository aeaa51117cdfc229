// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "RouteLookup.h"

#include "HttpError.h"
#include "SystemProxy.h"

#include <QFile>

#include <boost/asio/local/stream_protocol.hpp>
#include <boost/asio/post.hpp>
#include <mutex>
#include <netdb.h>
#include <thread>

namespace asio = boost::asio;
using namespace Qt::StringLiterals;

// Where the threads deliver to, for as long as it is there.
struct RouteLookup::Home
{
    std::mutex mutex;
    asio::io_context *context = nullptr; // guarded by mutex; null once gone
};

namespace {

using Addresses = std::vector<asio::generic::stream_protocol::endpoint>;

Addresses addressesOf(const QString &host, int port)
{
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_ADDRCONFIG | AI_NUMERICSERV;
    addrinfo *list = nullptr;
    const auto name = QUrl::toAce(host);
    const int error = ::getaddrinfo(name.isEmpty() ? host.toUtf8().constData() : name.constData(),
                                    QByteArray::number(port).constData(),
                                    &hints,
                                    &list);
    if (error != 0)
        throw HttpError(HttpError::Kind::Network,
                        u"The host \"%1\" was not found: %2."_s.arg(
                            host, QString::fromLocal8Bit(::gai_strerror(error))));
    const std::unique_ptr<addrinfo, void (*)(addrinfo *)> owned(list, &::freeaddrinfo);
    Addresses addresses;
    for (const auto *each = list; each; each = each->ai_next)
        addresses.emplace_back(each->ai_addr, each->ai_addrlen, each->ai_protocol);
    return addresses;
}

Route routeTo(const HttpAddress &origin)
{
    if (!origin.socketPath.isEmpty())
        return {.addresses = {asio::local::stream_protocol::endpoint(
                    QFile::encodeName(origin.socketPath).toStdString())}};
    const auto &url = origin.url;
    Route route{.proxy = systemProxyFor(url), .addresses = {}};
    const bool isDirect = route.proxy.type() == QNetworkProxy::NoProxy;
    route.addresses = isDirect ? addressesOf(url.host(), url.port())
                               : addressesOf(route.proxy.hostName(), route.proxy.port());
    return route;
}

} // namespace

RouteLookup::RouteLookup(asio::io_context &context)
    : m_home(std::make_shared<Home>())
{
    m_home->context = &context;
}

RouteLookup::~RouteLookup()
{
    const std::lock_guard lock(m_home->mutex);
    m_home->context = nullptr;
}

void RouteLookup::find(const HttpAddress &origin, const Found &found)
{
    std::thread([home = m_home, origin, found] {
        Route route;
        std::exception_ptr error;
        try {
            route = routeTo(origin);
        } catch (...) {
            error = std::current_exception();
        }
        const std::lock_guard lock(home->mutex);
        if (home->context)
            asio::post(*home->context, [found, route, error] { found(route, error); });
    }).detach();
}
