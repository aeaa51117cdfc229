// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ScriptedListener.h"

#include "ScriptedConnection.h"

#include <QSslSocket>

ScriptedListener::ScriptedListener(ScriptedHttpServer::Script script,
                                   std::optional<QSslConfiguration> tls)
    : m_script(std::move(script))
    , m_tls(std::move(tls))
{}

std::vector<RecordedRequest> ScriptedListener::requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

ScriptedAnswer ScriptedListener::answerFor(const RecordedRequest &request)
{
    auto answer = m_script(request);
    if (answer.isKept) {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back(request);
    }
    return answer;
}

void ScriptedListener::incomingConnection(qintptr descriptor)
{
    ++m_connections;
    if (!m_tls) {
        auto socket = std::make_unique<QTcpSocket>();
        socket->setSocketDescriptor(descriptor);
        new ScriptedConnection(*this, std::move(socket));
        return;
    }
    auto socket = std::make_unique<QSslSocket>();
    socket->setSocketDescriptor(descriptor);
    socket->setSslConfiguration(*m_tls);
    connect(socket.get(), &QSslSocket::encrypted, this, &ScriptedListener::noteHandshake);
    socket->startServerEncryption();
    new ScriptedConnection(*this, std::move(socket));
}
