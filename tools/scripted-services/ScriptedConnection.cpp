// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ScriptedConnection.h"

#include "ScriptedListener.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <sys/socket.h>

namespace {

constexpr int slowSize = 8 * 1024;

}

ScriptedConnection::ScriptedConnection(ScriptedListener &listener,
                                       std::unique_ptr<QTcpSocket> socket)
    : QObject(&listener)
    , m_listener(listener)
    , m_socket(std::move(socket))
{
    m_dripTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_dripTimer, &QTimer::timeout, this, &ScriptedConnection::drip);
    if (listener.isSlow()) {
        m_socket->setReadBufferSize(slowSize);
        m_socket->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, slowSize);
        connect(&m_slowTimer, &QTimer::timeout, this, &ScriptedConnection::readMore);
        m_slowTimer.start(std::chrono::milliseconds(10));
    } else {
        connect(m_socket.get(), &QTcpSocket::readyRead, this, &ScriptedConnection::readMore);
    }
    connect(m_socket.get(), &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

ScriptedConnection::~ScriptedConnection()
{
    m_socket->disconnect(this);
}

void ScriptedConnection::readMore()
{
    if (m_tunnel)
        m_tunnel->write(m_socket->readAll());
    else
        take(m_socket->read(m_listener.isSlow() ? slowSize : m_socket->bytesAvailable()));
}

void ScriptedConnection::take(const QByteArray &received)
{
    m_received += received;
    if (m_bodySize < 0 && !takeHead())
        return;
    if (m_received.size() >= m_bodySize)
        completeRequest();
}

bool ScriptedConnection::takeHead()
{
    const auto end = m_received.indexOf("\r\n\r\n");
    if (end < 0)
        return false;
    m_request.head = m_received.first(end + 4);
    m_received.remove(0, end + 4);
    if (m_request.target().endsWith("/early"))
        m_bodySize = 0;
    else
        m_bodySize = m_request.header("Content-Length").value_or("0").toLongLong();
    m_received.reserve(m_bodySize);
    if (m_request.header("Expect"))
        sendPart("HTTP/1.1 100 Continue\r\n\r\n");
    return true;
}

void ScriptedConnection::completeRequest()
{
    m_request.receivedAt = RecordedRequest::Clock::now();
    const auto rest = m_received.sliced(m_bodySize);
    m_received.truncate(m_bodySize);
    m_request.body = std::exchange(m_received, rest);
    m_bodySize = -1;
    m_answer = m_listener.answerFor(m_request);
    if (m_answer.delay.count() > 0)
        QTimer::singleShot(m_answer.delay, Qt::PreciseTimer, this, &ScriptedConnection::play);
    else
        play();
}

void ScriptedConnection::play()
{
    using Manner = ScriptedAnswer::Manner;
    switch (m_answer.manner) {
    case Manner::Whole:
        sendWhole();
        break;
    case Manner::Drip:
        m_dripped = 0;
        m_dripTimer.start(m_answer.interval);
        break;
    case Manner::CloseBefore:
        m_socket->disconnectFromHost();
        break;
    case Manner::ResetBefore:
        reset();
        break;
    case Manner::CloseInTheMiddle:
        sendPart(answerHead() + m_answer.body.first(m_answer.body.size() / 2));
        m_socket->disconnectFromHost();
        break;
    case Manner::ResetInTheMiddle:
        sendPart(answerHead() + m_answer.body.first(m_answer.body.size() / 2));
        reset();
        break;
    case Manner::Silence:
        break;
    case Manner::UntilClose:
        sendWhole();
        // Also of TLS, as many servers do: without a farewell.
        ::shutdown(static_cast<int>(m_socket->socketDescriptor()), SHUT_WR);
        m_socket->disconnectFromHost();
        break;
    case Manner::Tunnel:
        tunnel();
        break;
    }
}

void ScriptedConnection::sendWhole()
{
    sendPart(answerHead() + m_answer.body);
    if (m_answer.onSent)
        m_answer.onSent();
}

void ScriptedConnection::tunnel()
{
    m_tunnel = new QTcpSocket(m_socket.get());
    connect(m_tunnel, &QTcpSocket::connected, this, [this] { sendPart(answerHead()); });
    connect(m_tunnel, &QTcpSocket::readyRead, this, [this] { sendPart(m_tunnel->readAll()); });
    m_tunnel->connectToHost(QHostAddress::LocalHost, m_answer.tunnelPort);
}

void ScriptedConnection::drip()
{
    const auto answer = answerHead() + m_answer.body;
    if (m_dripped < answer.size())
        sendPart(answer.sliced(m_dripped++, 1));
    else
        m_dripTimer.stop();
}

void ScriptedConnection::sendPart(const QByteArray &bytes)
{
    m_socket->write(bytes);
    m_socket->flush();
}

void ScriptedConnection::reset()
{
    const linger immediately{1, 0};
    setsockopt(static_cast<int>(m_socket->socketDescriptor()),
               SOL_SOCKET,
               SO_LINGER,
               &immediately,
               sizeof immediately);
    m_socket->abort();
}

QByteArray ScriptedConnection::answerHead() const
{
    auto head = "HTTP/1.1 " + QByteArray::number(m_answer.status) + " Scripted\r\n";
    for (const auto &[name, value] : m_answer.headers)
        head += name + ": " + value + "\r\n";
    using Manner = ScriptedAnswer::Manner;
    if (m_answer.manner != Manner::UntilClose && m_answer.manner != Manner::Tunnel)
        head += "Content-Length: " + QByteArray::number(m_answer.body.size()) + "\r\n";
    return head + "\r\n";
}
