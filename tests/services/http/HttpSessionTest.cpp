// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpSession.h"
#include "ServiceOutcome.h"
#include "TestCertificates.h"
#include "WaitUntil.h"

#include <QScopeGuard>

#include <algorithm>
#include <future>
#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Flaw = TestCertificates::Flaw;
using Manner = ScriptedAnswer::Manner;
using Tls = std::optional<QSslConfiguration>;

HttpRequest requestTo(const HttpAddress &address, const QByteArray &body = "{}")
{
    return {address, {{"Content-Type", "application/json"}}, [body] {
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
                HttpSession session;
                auto request = requestTo(server.url(), QByteArray(size, 'x'));
                if (manner == Manner::Silence)
                    request.inactivityLimit = 1500ms;
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
    // It waits for more of what is no HTTP to it.
    const ScriptedHttpServer withoutTls(ScriptedAnswer{});
    auto request = requestTo(withoutTls.url());
    request.address.url.setScheme(u"https"_s);
    request.inactivityLimit = 300ms;
    EXPECT_EQ(sent(session, request), "timedOut");
}

TEST(HttpSession, VerifiesCertificates)
{
    TestCertificates certificates;
    for (const auto flaw : {Flaw::None, Flaw::Untrusted, Flaw::Expired, Flaw::WrongHost}) {
        const bool isGood = flaw == Flaw::None;
        const ScriptedHttpServer server(ScriptedAnswer{}, certificates.server(flaw));
        HttpSession session;
        EXPECT_EQ(sent(session, requestTo(server.url())), isGood ? "= 200 " : "tls");
        EXPECT_EQ(server.requests().size(), isGood ? 1 : 0);
    }
    const ScriptedHttpServer server(ScriptedAnswer{}, certificates.server());
    qunsetenv("SSL_CERT_DIR");
    HttpSession trustingTheSystem;
    EXPECT_EQ(sent(trustingTheSystem, requestTo(server.url())), "tls");
}

TEST(HttpSession, HandsOutEveryStatusAndFollowsNothing)
{
    for (const int status :
         {200, 201, 204, 301, 302, 307, 308, 400, 401, 402, 404, 407, 429, 500, 503}) {
        const ScriptedHttpServer server(ScriptedAnswer{
            .status = status,
            .body = status == 204 ? "" : "whole text",
            .headers = {{"Location", "/elsewhere"}, {"WWW-Authenticate", "Negotiate"}}});
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
                  "Content-Length");
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

TEST(HttpSession, LosesNoRequestToAConnectionThatDiedWhileIdle)
{
    const ScriptedHttpServer notOpenedAhead(ScriptedAnswer{});
    const ScriptedHttpServer gone(ScriptedAnswer{});
    const ScriptedHttpServer there(ScriptedAnswer{});
    const auto all = {&notOpenedAhead, &gone, &there};
    HttpSession session;
    for (const auto *server : all)
        EXPECT_EQ(sent(session, requestTo(server->url())), "= 200 ");
    notOpenedAhead.vanish();
    gone.vanish();
    // Nothing tells which of them is gone, but after some seconds they are replaced.
    ASSERT_TRUE(waitUntil([&] {
        session.openAhead(gone.url());
        session.openAhead(there.url());
        return gone.connections() == 2 && there.connections() == 2;
    }));
    for (const auto *server : all) {
        EXPECT_EQ(sent(session, requestTo(server->url())), "= 200 ");
        EXPECT_EQ(server->requests().size(), 2);
    }
}

TEST(HttpSession, MeasuresProgressByWhatThePeerAcknowledgesOnTheRequestsOwnConnection)
{
    HttpSession session;
    const ScriptedHttpServer slow(ScriptedAnswer{.body = "at last"});
    slow.readSlowly();
    auto upload = requestTo(slow.url(), QByteArray(400'000, 'x'));
    upload.inactivityLimit = 500ms;
    EXPECT_GT(millisecondsOf([&] { EXPECT_EQ(sent(session, upload), "= 200 at last"); }), 600);

    const ScriptedHttpServer dripping(
        ScriptedAnswer{.body = QByteArray(100'000, 'x'), .manner = Manner::Drip, .interval = 5ms});
    const ScriptedHttpServer silent(ScriptedAnswer{.manner = Manner::Silence});
    auto other =
        std::async(std::launch::async, [&] { return sent(session, requestTo(dripping.url())); });
    ASSERT_TRUE(waitUntil([&dripping] { return dripping.requests().size() == 1; }));
    auto request = requestTo(silent.url());
    request.inactivityLimit = 400ms;
    EXPECT_LT(millisecondsOf([&] { EXPECT_EQ(sent(session, request), "timedOut"); }), 3000);
    session.close();
    EXPECT_EQ(other.get(), "cancelled");
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

TEST(HttpSession, TellsTheStatusHoweverTheAnswerEnds)
{
    TestCertificates certificates;
    const Tls encryptions[] = {{}, certificates.server()};
    for (const auto &tls : encryptions)
        for (const auto &[path, status] :
             {std::pair(u"/"_s, 200), std::pair(u"/early"_s, 413), std::pair(u"/early"_s, 401)}) {
            const ScriptedHttpServer server(
                {.status = status, .body = "whole", .manner = Manner::UntilClose}, tls);
            HttpSession session;
            for (int round = 0; round < 30; ++round)
                EXPECT_EQ(sent(session, requestTo(server.url(path), QByteArray(1'000'000, 'x'))),
                          "= " + std::to_string(status) + " whole");
        }
}

TEST(HttpSession, SendsTheUserAndThePasswordOfTheAddress)
{
    const ScriptedHttpServer server(ScriptedAnswer{});
    HttpSession session;
    auto url = server.url();
    url.setUserInfo(u"na%20me:p%40ss"_s);
    auto request = requestTo(url);
    EXPECT_EQ(sent(session, request), "= 200 ");
    request.headers = {{"authorization", "Bearer key"}};
    EXPECT_EQ(sent(session, request), "= 200 ");
    EXPECT_EQ(server.requests().at(0).header("Authorization"), "Basic bmEgbWU6cEBzcw==");
    EXPECT_EQ(server.requests().at(1).header("Authorization"), "Bearer key");
    EXPECT_EQ(server.requests().at(1).header("Host"),
              "127.0.0.1:" + QByteArray::number(server.port()));
}

class HttpSessionProxy : public testing::Test
{
protected:
    void TearDown() override
    {
        for (const char *scheme : {"http_proxy", "https_proxy"})
            qunsetenv(scheme);
    }

    static void useProxy(const ScriptedHttpServer &proxy, const QString &credentials = {})
    {
        auto url = proxy.url();
        url.setUserInfo(credentials);
        for (const char *scheme : {"http_proxy", "https_proxy"})
            qputenv(scheme, url.toEncoded());
    }

    HttpSession m_session;
};

TEST_F(HttpSessionProxy, IsTheEnvironmentsAlsoWhenOpeningAheadButNotForLoopback)
{
    const ScriptedHttpServer proxy(ScriptedAnswer{.body = "proxied"});
    useProxy(proxy);
    m_session.openAhead(QUrl(u"http://service.invalid/"_s));
    ASSERT_TRUE(waitUntil([&proxy] { return proxy.connections() == 1; }));
    EXPECT_EQ(sent(m_session, requestTo(QUrl(u"http://service.invalid/a"_s))), "= 200 proxied");
    EXPECT_EQ(proxy.connections(), 1);
    EXPECT_EQ(proxy.requests().at(0).target(), "http://service.invalid/a");
    const ScriptedHttpServer local(ScriptedAnswer{.body = "direct"});
    EXPECT_EQ(sent(m_session, requestTo(local.url())), "= 200 direct");
}

TEST_F(HttpSessionProxy, LeadsToTheServerWhenItsPasswordIsRight)
{
    TestCertificates certificates;
    const ScriptedHttpServer server(ScriptedAnswer{.body = "through"}, certificates.server());
    const ScriptedHttpServer proxy([&server](const RecordedRequest &request) {
        if (request.header("Proxy-Authorization") != "Basic dXNlcjpwYXNz")
            return ScriptedAnswer{.status = 407, .body = "who"};
        if (request.method() != "CONNECT")
            return ScriptedAnswer{.body = "forwarded"};
        return ScriptedAnswer{.manner = Manner::Tunnel, .tunnelPort = server.port()};
    });
    const std::tuple<QString, QString, std::string> rows[] = {
        {u"user:pass"_s, u"http"_s, "= 200 forwarded"},
        {u"user:wrong"_s, u"http"_s, "= 407 who"},
        {{}, u"http"_s, "= 407 who"},
        // The certificate is for another name: the tunnel has led to the server.
        {u"user:pass"_s, u"https"_s, "tls"},
        {u"user:wrong"_s, u"https"_s, "network"},
        {{}, u"https"_s, "network"}};
    for (const auto &[credentials, scheme, expected] : rows) {
        useProxy(proxy, credentials);
        HttpSession session;
        EXPECT_EQ(sent(session, requestTo(QUrl(scheme + u"://service.invalid/"_s))), expected);
    }
    EXPECT_EQ(proxy.requests().back().target(), "service.invalid:443");
}

TEST(HttpSession, OpensConnectionsAheadThatTheRequestThenUses)
{
    TestCertificates certificates;
    const Tls encryptions[] = {{}, certificates.server()};
    for (const auto &tls : encryptions) {
        const ScriptedHttpServer server(ScriptedAnswer{}, tls);
        HttpSession session;
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

class HttpSessionSocket : public HttpSessionProxy
{
protected:
    // A unix socket on which a program of this user listens.
    [[nodiscard]] int listeningSocket(uid_t user) const
    {
        const auto listen = [path = m_path.toStdString(), user] {
            sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
            std::ranges::copy(path, address.sun_path);
            const int listening = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0);
            const void *place = &address;
            EXPECT_EQ(::bind(listening, static_cast<const sockaddr *>(place), sizeof address), 0);
            // The thread's alone, unlike what the library would do.
            EXPECT_EQ(::syscall(SYS_setresuid, -1, user, -1), 0);
            EXPECT_EQ(::listen(listening, 8), 0);
            return listening;
        };
        return std::async(std::launch::async, listen).get();
    }

    [[nodiscard]] HttpAddress address() const
    {
        const auto socket = QString::fromLatin1(QUrl::toPercentEncoding(m_path));
        return parseHttpAddress("http+unix://"_L1 + socket + "/v1/a?b=%20c"_L1).value();
    }

    QTemporaryDir m_directory;
    const QString m_path = m_directory.filePath(u"a socket"_s);
};

TEST_F(HttpSessionSocket, IsAskedInPlaceOfAHostAndWithoutAProxy)
{
    const ScriptedHttpServer proxy(ScriptedAnswer{.body = "proxied"});
    useProxy(proxy);
    EXPECT_EQ(sent(m_session, requestTo(address())), "network");
    const ScriptedHttpServer server(ScriptedAnswer{.body = "local"}, listeningSocket(::geteuid()));
    m_session.openAhead(address());
    ASSERT_TRUE(waitUntil([&server] { return server.connections() == 1; }));
    for (const int size : {2, 1'000'000})
        EXPECT_EQ(sent(m_session, requestTo(address(), QByteArray(size, 'x'))), "= 200 local");
    EXPECT_EQ(server.connections(), 1);
    const auto request = server.requests().at(1);
    EXPECT_EQ(request.body.size(), 1'000'000);
    EXPECT_EQ(request.target(), "/v1/a?b=%20c");
    EXPECT_EQ(request.header("Host"), "localhost");
}

TEST_F(HttpSessionSocket, IsToldNothingWhenAnotherUserListens)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "Only root can be another user.";
    const ScriptedHttpServer server(ScriptedAnswer{}, listeningSocket(65534));
    EXPECT_EQ(sent(m_session, requestTo(address())), "network");
    EXPECT_EQ(server.requests().size(), 0);
}

TEST(HttpAddress, IsAnAbsoluteUrlOrASocketWithAnAbsolutePath)
{
    const auto tooLong = u"http+unix://%2F"_s + QString(120, u'a');
    for (const auto &text : {u""_s,
                             u"host/path"_s,
                             u"ftp://host"_s,
                             u"http://"_s,
                             u"http+unix://"_s,
                             u"http+unix:///run/socket"_s,
                             u"http+unix://run%2Fsocket/"_s,
                             u"http+unix://%2Frun%2F%zz/"_s,
                             u"http+unix://%2Frun%00/"_s,
                             u"https+unix://%2Frun%2Fsocket/"_s,
                             tooLong})
        EXPECT_EQ(parseHttpAddress(text), std::nullopt) << text.toStdString();
    const auto address = parseHttpAddress(u"http+unix://%2Frun%2F%e8%af%ad-1_~'(2)"_s);
    EXPECT_EQ(address.value().socketPath, u"/run/语-1_~'(2)"_s);
}

TEST(HttpSession, ServesManyThreadsAtOnce)
{
    const ScriptedHttpServer server(
        [](const RecordedRequest &request) { return ScriptedAnswer{.body = request.body}; });
    HttpSession session;
    std::vector<std::future<bool>> senders;
    senders.reserve(8);
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
}

TEST(HttpSession, ClosesAtOnceAndCancelsWhatIsInFlight)
{
    const ScriptedHttpServer server(ScriptedAnswer{.manner = Manner::Silence});
    HttpSession session;
    std::vector<std::future<std::string>> senders;
    senders.reserve(4);
    for (int sender = 0; sender < 3; ++sender)
        senders.push_back(std::async(std::launch::async, [&session, &server] {
            return sent(session, requestTo(server.url()));
        }));
    auto opening = requestTo(server.url());
    opening.address.url.setScheme(u"https"_s);
    senders.push_back(std::async(std::launch::async, [&] { return sent(session, opening); }));
    ASSERT_TRUE(waitUntil(
        [&server] { return server.requests().size() == 3 && server.connections() == 4; }));
    EXPECT_LT(millisecondsOf([&] {
                  session.close();
                  for (auto &sender : senders)
                      EXPECT_EQ(sender.get(), "cancelled");
              }),
              10'000); // the requests would wait for a minute
    EXPECT_EQ(sent(session, requestTo(server.url())), "closed");
    session.openAhead(server.url());
}
