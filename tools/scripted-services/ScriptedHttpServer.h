// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QSslConfiguration>
#include <QUrl>

#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

class QEventLoop;
class ScriptedListener;

// A request as it arrived.
struct RecordedRequest
{
    using Clock = std::chrono::steady_clock;

    QByteArray head; // up to and including the empty line
    QByteArray body;
    Clock::time_point receivedAt; // when the last byte of the body had arrived

    [[nodiscard]] QByteArray method() const;
    [[nodiscard]] QByteArray target() const;
    // In the order of the wire, spelled as there.
    [[nodiscard]] QList<std::pair<QByteArray, QByteArray>> headers() const;
    // The value of a header, whatever its case; nothing when it is absent.
    [[nodiscard]] std::optional<QByteArray> header(const QByteArray &name) const;
};

// What a scripted server does with a request.
struct ScriptedAnswer
{
    enum class Manner {
        Whole, // the answer at once
        Drip, // byte after byte, `interval` apart
        CloseBefore, // close without a word
        ResetBefore, // reset without a word
        CloseInTheMiddle, // half of the body, then close
        ResetInTheMiddle, // half of the body, then reset
        Silence, // nothing, and stay connected
        UntilClose, // the answer without its length, then close
        Tunnel, // an answer without a body, then lead on to `tunnelPort` on loopback
    };

    int status = 200;
    QByteArray body = {};
    QList<std::pair<QByteArray, QByteArray>> headers = {};
    Manner manner = Manner::Whole;
    std::chrono::milliseconds delay{}; // before the answer
    std::chrono::milliseconds interval{};
    quint16 tunnelPort = 0;
    bool isKept = true; // whether requests() is to show the request
    std::function<void()> onSent =
        {}; // called on the server's thread when all was handed to the system
};

// A real HTTP server on loopback that answers by a script and records what it was asked; for tests
// and demonstrations. It lives on a thread of its own. A request whose path ends with "/early" is
// answered before its body is read.
class ScriptedHttpServer final
{
public:
    // Decides about a request, on the server's thread.
    using Script = std::function<ScriptedAnswer(const RecordedRequest &)>;

    // Listens on a free port; with `tls` it speaks TLS with that certificate and key.
    explicit ScriptedHttpServer(Script script, const std::optional<QSslConfiguration> &tls = {});
    explicit ScriptedHttpServer(const ScriptedAnswer &answer,
                                const std::optional<QSslConfiguration> &tls = {});
    // Takes a socket over that listens already, such as a unix socket.
    ScriptedHttpServer(const ScriptedAnswer &answer, int listeningSocket);
    ~ScriptedHttpServer();
    ScriptedHttpServer(const ScriptedHttpServer &) = delete;
    ScriptedHttpServer &operator=(const ScriptedHttpServer &) = delete;

    [[nodiscard]] quint16 port() const;
    [[nodiscard]] QUrl url(const QString &path = {}, const QString &host = {}) const;
    // All requests whose bodies are complete, also those answered with silence.
    [[nodiscard]] std::vector<RecordedRequest> requests() const;
    // Connections accepted so far, and those of them whose TLS handshake is done.
    [[nodiscard]] int connections() const;
    [[nodiscard]] int handshakes() const;

    // From now on reads 8 KB every 10 ms, and keeps no more than that waiting.
    void readSlowly() const;
    // Has the open connections drop every packet that comes, as if the machine were gone.
    void vanish() const;

private:
    void run(const Script &script,
             const std::optional<QSslConfiguration> &tls,
             std::optional<int> listeningSocket = {});

    // Both live on the server's thread.
    ScriptedListener *m_listener = nullptr;
    QEventLoop *m_loop = nullptr;
    std::promise<void> m_isListening;
    std::thread m_thread;
};
