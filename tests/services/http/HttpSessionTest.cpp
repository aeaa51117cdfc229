// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpSession.h"
#include "ServiceOutcome.h"
#include "TestCertificates.h"
#include "WaitUntil.h"

#include <QTcpSocket>

#include <future>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Flaw = TestCertificates::Flaw;
using Manner = ScriptedAnswer::Manner;
using Tls = std::optional<QSslConfiguration>;

HttpRequest requestTo(const QUrl &url, const QByteArray &body = "{}")
{
    return {url, {{"Content-Type", "application/json"}}, [body] {
                return std::make_unique<BytesBody>(body);
            }};
}

// "= status body", or the kind of the error.
std::string sent(HttpSession &session, const HttpRequest &request)
{
    return serviceOutcome([&session, &request] {
        const auto response = session.send(request);
        return QString::number(response.status) + u' '
            + QString::fromUtf8(response.body.first(std::min<qsizetype>(response.body.size(), 40)));
    });
}

} // namespace

TEST(HttpSession, FailsClearlyAfterExactlyOneRequestWhenTheExchangeBreaks)
{
    TestCertificates certificates;
    const Tls encryptions[] = {{}, certificates.server()};
    const std::pair<Manner, const char *> rows[] = {{Manner::CloseBefore, "network"},
                                                    {Manner::ResetBefore, "network"},
                                                    {Manner::CloseInTheMiddle, "network"},
                                                    {Manner::ResetInTheMiddle, "network"},
                                                    {Manner::Silence, "timedOut"}};
    for (const auto &[manner, expected] : rows)
        for (const auto &tls : encryptions)
            for (const int size : {2, 300'000}) {
                const ScriptedHttpServer server({.body = "half of this", .manner = manner}, tls);
                HttpSession session(certificates.client());
                auto request = requestTo(server.url(), QByteArray(size, 'x'));
                request.inactivityLimit = 400ms;
                EXPECT_EQ(sent(session, request), expected) << server.url().scheme().toStdString();
                EXPECT_EQ(server.requests().size(), 1);
                EXPECT_EQ(server.connections(), 1);
            }
}

TEST(HttpSession, ReportsServersThatCannotBeReached)
{
    const auto closed = ScriptedHttpServer(ScriptedAnswer{}).url();
    HttpSession session;
    for (const auto &url :
         {closed, QUrl(u"http://nowhere.invalid/"_s), QUrl(u"https://nowhere.invalid/"_s)})
        EXPECT_EQ(sent(session, requestTo(url)), "network");
}

TEST(HttpSession, VerifiesCertificates)
{
    TestCertificates certificates;
    for (const auto flaw : {Flaw::None, Flaw::Untrusted, Flaw::Expired, Flaw::WrongHost}) {
        const bool isGood = flaw == Flaw::None;
        const ScriptedHttpServer server(ScriptedAnswer{}, certificates.server(flaw));
        HttpSession session(certificates.client());
        EXPECT_EQ(sent(session, requestTo(server.url())), isGood ? "= 200 " : "tls");
        EXPECT_EQ(server.requests().size(), isGood ? 1 : 0);
        // Without a configuration of its own a session trusts the system's authorities only.
        HttpSession plain;
        EXPECT_EQ(sent(plain, requestTo(server.url())), "tls");
    }
}

TEST(HttpSession, HandsOutEveryStatusAndFollowsNothing)
{
    for (const int status :
         {200, 201, 204, 301, 302, 307, 308, 400, 401, 402, 404, 407, 429, 500, 503}) {
        const ScriptedHttpServer server(ScriptedAnswer{
            .status = status,
            .body = status == 204 ? "" : "whole text",
            .headers = {{"Location", "/elsewhere"}, {"WWW-Authenticate", "Basic realm=\"x\""}}});
        HttpSession session;
        EXPECT_EQ(sent(session, requestTo(server.url())),
                  "= " + std::to_string(status) + (status == 204 ? " " : " whole text"));
        EXPECT_EQ(server.requests().size(), 1) << status;
    }
}

TEST(HttpSession, SendsOurHeadersInOrderAndKeepsNoState)
{
    const ScriptedHttpServer server(ScriptedAnswer{
        .body = "{}", .headers = {{"Set-Cookie", "a=b"}, {"Cache-Control", "max-age=999"}}});
    HttpSession session;
    auto request = requestTo(server.url(u"/path"_s), "body");
    request.headers = {{"Content-Type", "application/json"}, {"X-b", "1"}, {"X-a", "2"}};
    for (int round = 0; round < 2; ++round)
        EXPECT_EQ(sent(session, request), "= 200 {}");
    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(server.connections(), 1);
    for (const auto &received : server.requests()) {
        QByteArrayList names;
        for (const auto &[name, value] : received.headers())
            names.append(name);
        EXPECT_EQ(names.join(' '),
                  "Host Content-Type X-b X-a Accept-Encoding Accept-Language User-Agent "
                  "Content-Length Connection");
        EXPECT_TRUE(received.head.startsWith("POST /path HTTP/1.1\r\n"));
        EXPECT_EQ(received.body, "body");
    }
}

TEST(HttpSession, RefusesHeadersThatCannotBeWritten)
{
    const ScriptedHttpServer server(ScriptedAnswer{});
    HttpSession session;
    for (const QByteArray value : {"a\r\nX-Injected: b", "a\nb", "a\rb", "k\xc3\xa9y", "a\tb"}) {
        auto request = requestTo(server.url());
        request.headers = {{"X-Key", value}};
        EXPECT_EQ(sent(session, request), "invalidRequest");
    }
    EXPECT_EQ(server.connections(), 0);
}

TEST(HttpSession, WaitsAsLongAsSomethingMovesAndTakesLargeAnswers)
{
    const ScriptedHttpServer server(
        ScriptedAnswer{.body = "ten  bytes", .manner = Manner::Drip, .interval = 40ms});
    HttpSession session;
    auto request = requestTo(server.url());
    request.inactivityLimit = 500ms;
    EXPECT_EQ(sent(session, request), "= 200 ten  bytes");
    const QByteArray large(50'000'000, 'a');
    const ScriptedHttpServer generous(ScriptedAnswer{.body = large});
    EXPECT_TRUE(session.send(requestTo(generous.url())).body == large);
}

TEST(HttpSession, UsesTheEnvironmentsProxyAlsoWhenOpeningAhead)
{
    const ScriptedHttpServer proxy(ScriptedAnswer{.body = "proxied"});
    const auto address = proxy.url().toEncoded();
    const auto reset = qScopeGuard([] { qunsetenv("http_proxy") && qunsetenv("https_proxy"); });
    qputenv("http_proxy", address);
    qputenv("https_proxy", address);
    HttpSession session;
    session.openAhead(QUrl(u"http://service.invalid/"_s));
    ASSERT_TRUE(waitUntil([&proxy] { return proxy.connections() == 1; }));
    EXPECT_EQ(sent(session, requestTo(QUrl(u"http://service.invalid/a"_s))), "= 200 proxied");
    EXPECT_EQ(proxy.connections(), 1);
    EXPECT_EQ(proxy.requests().at(0).target(), "http://service.invalid/a");

    session.openAhead(QUrl(u"https://service.invalid/"_s));
    ASSERT_TRUE(waitUntil([&proxy] { return proxy.requests().size() == 2; }));
    EXPECT_EQ(proxy.requests().at(1).method(), "CONNECT");

    const ScriptedHttpServer local(ScriptedAnswer{.body = "direct"});
    EXPECT_EQ(sent(session, requestTo(local.url())), "= 200 direct");
}

TEST(HttpSession, OpensConnectionsAheadThatTheRequestThenUses)
{
    TestCertificates certificates;
    const Tls encryptions[] = {{}, certificates.server()};
    for (const auto &tls : encryptions) {
        const ScriptedHttpServer server(ScriptedAnswer{}, tls);
        HttpSession session(certificates.client());
        const auto isOpen = [&] { return (tls ? server.handshakes() : server.connections()) == 1; };
        for (int round = 0; round < 3; ++round) {
            session.openAhead(server.url(u"/some/path"_s));
            ASSERT_TRUE(waitUntil(isOpen));
            EXPECT_EQ(sent(session, requestTo(server.url())), "= 200 ");
        }
        EXPECT_EQ(server.connections(), 1);
        EXPECT_EQ(server.requests().size(), 3);
    }
    HttpSession session;
    session.openAhead(QUrl());
    session.openAhead(QUrl(u"ftp://x/"_s));
}

TEST(HttpSession, ServesManyThreadsAtOnceAndSendsSmallSegmentsWithoutDelay)
{
    const ScriptedHttpServer server(
        [](const RecordedRequest &request) { return ScriptedAnswer{.body = request.body}; });
    // The session's own sockets cannot be reached, but what it does for them it does for all.
    QTcpSocket witness;
    witness.connectToHost(QHostAddress::LocalHost, server.port());
    ASSERT_TRUE(witness.waitForConnected());
    HttpSession session;
    std::vector<std::future<bool>> senders;
    for (int sender = 0; sender < 8; ++sender)
        senders.push_back(std::async(std::launch::async, [&session, &server, sender] {
            const auto text = QByteArray::number(sender);
            bool isRight = true;
            for (int round = 0; round < 5; ++round)
                isRight &= session.send(requestTo(server.url(), text)).body == text;
            return isRight;
        }));
    for (auto &sender : senders)
        EXPECT_TRUE(sender.get());
    EXPECT_EQ(witness.socketOption(QAbstractSocket::LowDelayOption).toInt(), 1);
}

TEST(HttpSession, ClosesAtOnceAndCancelsWhatIsInFlight)
{
    const ScriptedHttpServer server(ScriptedAnswer{.manner = Manner::Silence});
    HttpSession session;
    std::vector<std::future<std::string>> senders;
    for (int sender = 0; sender < 3; ++sender)
        senders.push_back(std::async(std::launch::async, [&session, &server] {
            return sent(session, requestTo(server.url()));
        }));
    ASSERT_TRUE(waitUntil([&server] { return server.requests().size() == 3; }));
    EXPECT_LT(millisecondsOf([&] {
                  session.close();
                  for (auto &sender : senders)
                      EXPECT_EQ(sender.get(), "cancelled");
              }),
              500);
    EXPECT_EQ(sent(session, requestTo(server.url())), "closed");
    session.openAhead(server.url());
}
