// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpError.h"
#include "ProxyHandshake.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// What is said and heard, in hexadecimal: ">" before our messages, "done", or the error's end. What
// the proxy says comes byte after byte.
QByteArray conversation(const QNetworkProxy &proxy, const QByteArrayList &answers)
{
    QByteArray result;
    try {
        const auto handshake = makeProxyHandshake(proxy, QUrl(u"https://bücher.example:443/"_s));
        QByteArray received;
        result = '>' + handshake->next(received).message.toHex();
        for (const auto &answer : answers)
            for (const char byte : QByteArray::fromHex(answer)) {
                received += byte;
                const auto [message, isDone] = handshake->next(received);
                result += message.isEmpty() ? "" : " >" + message.toHex();
                if (isDone)
                    return result + " done" + (received.isEmpty() ? "" : " and more");
            }
        return result + " waits";
    } catch (const HttpError &error) {
        const auto text = error.localizedDescription();
        return result + text.sliced(text.indexOf(u'"')).toLatin1();
    }
}

} // namespace

TEST(ProxyHandshake, SpeaksSocks5)
{
    const QNetworkProxy open(QNetworkProxy::Socks5Proxy, u"p"_s, 1080);
    const QNetworkProxy closed(QNetworkProxy::Socks5Proxy, u"p"_s, 1080, u"us"_s, u"pw"_s);
    const auto host = "xn--bcher-kva.example"_qba;
    const auto connect = " >05010003" + QByteArray(1, static_cast<char>(host.size())).toHex()
        + host.toHex() + "01bb";
    const std::tuple<QNetworkProxy, QByteArrayList, QByteArray> rows[] = {
        {open, {"0500", "0500000101020304ffff"}, connect + " done"},
        {open, {"0500", "05000003026162ffff"}, connect + " done"},
        {open, {"0500", "05000004000102030405060708090a0b0c0d0e0fffff"}, connect + " done"},
        {open, {"0500", "050000010102"}, connect + " waits"},
        {open, {"0502"}, R"("p:1080" wants a user and a password.)"},
        {open, {"05ff"}, R"("p:1080" wants a user and a password.)"},
        {open, {"0500", "0505000100"}, connect + R"("p:1080" refused with SOCKS error 5.)"},
        {closed,
         {"0502", "0100", "0500000101020304ffff"},
         " >0102757302"
         "7077"
             + connect + " done"},
        {closed, {"0502", "0101"}, " >01027573027077\"p:1080\" refused the user or the password."},
    };
    for (const auto &[proxy, answers, expected] : rows)
        EXPECT_EQ(conversation(proxy, answers), ">05020002" + expected);
    const QNetworkProxy other(QNetworkProxy::FtpCachingProxy, u"p"_s, 21);
    EXPECT_EQ(conversation(other, {}), R"("p:21" is of a kind that cannot be used.)");
}
