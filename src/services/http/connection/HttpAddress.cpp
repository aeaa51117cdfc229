// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpAddress.h"

#include <QFile>
#include <QRegularExpression>

#include <sys/un.h>

using namespace Qt::StringLiterals;

namespace {

// What the kernel takes, with room for the zero at the end.
bool isSocketPath(const QString &path)
{
    return path.startsWith(u'/') && !path.contains(QChar::Null)
        && QFile::encodeName(path).size() < qsizetype(sizeof sockaddr_un::sun_path);
}

} // namespace

HttpAddress::HttpAddress(QUrl hostUrl)
    : url(std::move(hostUrl))
{}

bool isHttp(const HttpAddress &address)
{
    const auto &url = address.url;
    return url.isValid() && !url.host().isEmpty()
        && (url.scheme() == "http"_L1 || url.scheme() == "https"_L1);
}

std::optional<HttpAddress> parseHttpAddress(const QString &text)
{
    static const QRegularExpression form(
        uR"(\Ahttp\+unix://((?:[\w.~!$&'()*+,;=-]|%[0-9A-Fa-f]{2})+)((?:/.*)?)\z)"_s);
    HttpAddress address;
    if (const auto match = form.match(text); match.hasMatch()) {
        address.socketPath = QUrl::fromPercentEncoding(match.captured(1).toUtf8());
        if (!isSocketPath(address.socketPath))
            return {};
        address.url = QUrl("http://localhost"_L1 + match.captured(2), QUrl::StrictMode);
    } else {
        address.url = QUrl(text, QUrl::StrictMode);
    }
    return isHttp(address) ? std::optional(address) : std::nullopt;
}

HttpAddress originOf(const HttpAddress &address)
{
    const auto &url = address.url;
    HttpAddress origin;
    origin.url.setScheme(url.scheme());
    origin.url.setHost(url.host());
    origin.url.setPort(url.port(url.scheme() == "https"_L1 ? 443 : 80));
    origin.socketPath = address.socketPath;
    return origin;
}
