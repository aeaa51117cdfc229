// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ScriptedListener.h"

#include "ScriptedConnection.h"

#include <QSslSocket>

#include <linux/filter.h>
#include <sys/socket.h>

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

void ScriptedListener::vanish()
{
    sock_filter nothing = BPF_STMT(BPF_RET | BPF_K, 0);
    const sock_fprog filter{1, &nothing};
    const std::lock_guard lock(m_mutex);
    for (const int descriptor : m_descriptors)
        ::setsockopt(descriptor, SOL_SOCKET, SO_ATTACH_FILTER, &filter, sizeof filter);
}

void ScriptedListener::incomingConnection(qintptr descriptor)
{
    {
        const std::lock_guard lock(m_mutex);
        m_descriptors.push_back(static_cast<int>(descriptor));
    }
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
