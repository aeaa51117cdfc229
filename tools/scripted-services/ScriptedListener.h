// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ScriptedHttpServer.h"

#include <QTcpServer>

#include <atomic>
#include <mutex>

// The listening socket of a ScriptedHttpServer and what it has recorded.
class ScriptedListener final : public QTcpServer
{
    Q_OBJECT
public:
    ScriptedListener(ScriptedHttpServer::Script script, std::optional<QSslConfiguration> tls);

    [[nodiscard]] bool isTls() const { return m_tls.has_value(); }
    // Any thread.
    [[nodiscard]] std::vector<RecordedRequest> requests() const;
    [[nodiscard]] int connections() const { return m_connections; }
    [[nodiscard]] int handshakes() const { return m_handshakes; }
    void readSlowly() { m_isSlow = true; }
    void vanish();

    // The server's thread.
    [[nodiscard]] bool isSlow() const { return m_isSlow; }
    void noteHandshake() { ++m_handshakes; }
    [[nodiscard]] ScriptedAnswer answerFor(const RecordedRequest &request);

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    const ScriptedHttpServer::Script m_script;
    const std::optional<QSslConfiguration> m_tls;
    mutable std::mutex m_mutex;
    std::vector<RecordedRequest> m_requests; // guarded by m_mutex
    std::vector<int> m_descriptors; // of all connections, guarded by m_mutex
    std::atomic<bool> m_isSlow = false;
    std::atomic<int> m_connections = 0;
    std::atomic<int> m_handshakes = 0;
};
