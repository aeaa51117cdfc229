// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpRequestHead.h"

#include "HttpError.h"
#include "ProxyHandshake.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// As an origin server wants it, or whole, as a proxy does.
QByteArray target(const QUrl &url, bool isForwarded)
{
    auto parts = QUrl::FormattingOptions(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    if (!isForwarded)
        parts |= QUrl::RemoveScheme | QUrl::RemoveAuthority;
    auto full = url;
    if (full.path().isEmpty())
        full.setPath(u"/"_s);
    return full.toEncoded(parts);
}

QByteArray authority(QUrl url)
{
    url.setUserInfo({});
    return url.authority(QUrl::FullyEncoded).toLatin1();
}

bool hasHeader(const HttpRequest &request, const QByteArray &name)
{
    return std::any_of(request.headers.begin(), request.headers.end(), [&name](const auto &each) {
        return each.first.compare(name, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

void checkHeaders(const HttpRequest &request)
{
    // A value with a line break would be more headers, one with other bytes is read differently by
    // every server. The value itself is not named: it may be a key.
    const auto isPrintable = [](char c) { return c >= ' ' && c <= '~'; };
    for (const auto &[name, value] : request.headers)
        if (!std::all_of(value.begin(), value.end(), isPrintable))
            throw HttpError(
                HttpError::Kind::InvalidRequest,
                u"The value of the header \"%1\" contains characters that cannot be sent."_s.arg(
                    QString::fromLatin1(name)));
}

QByteArray requestHead(const HttpRequest &request, qint64 bodySize, const QNetworkProxy &proxy)
{
    const auto &url = request.address.url;
    const bool toProxy = isForwarded(proxy, url);
    auto head =
        "POST " + target(url, toProxy) + " HTTP/1.1\r\nHost: " + authority(url) + "\r\n"_qba;
    for (const auto &[name, value] : request.headers)
        head += name + ": " + value + "\r\n";
    if (!url.userInfo().isEmpty() && !hasHeader(request, "Authorization"))
        head += "Authorization: "
            + basicCredentials(url.userName(QUrl::FullyDecoded), url.password(QUrl::FullyDecoded))
            + "\r\n";
    if (toProxy && !proxy.user().isEmpty())
        head += "Proxy-Authorization: " + basicCredentials(proxy.user(), proxy.password()) + "\r\n";
    return head
        + "Accept-Encoding: identity\r\nAccept-Language: zh-CN,zh;q=0.9,en;q=0.8\r\n"
          "User-Agent: Wrenfold\r\nContent-Length: "
        + QByteArray::number(bodySize) + "\r\n\r\n";
}
