// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SwaySocket.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonObject>

#include <array>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 500; // milliseconds
constexpr QByteArrayView magic("i3-ipc");
constexpr qsizetype headSize = 14;

// Length and type, as they follow the magic word.
using Head = std::array<quint32, 2>;

} // namespace

bool SwaySocket::isThere()
{
    return SwaySocket().isConnected();
}

QJsonDocument SwaySocket::ask(SwayMessage question, const QByteArray &payload)
{
    SwaySocket socket;
    if (!socket.isConnected())
        return {};
    socket.send(question, payload);
    return socket.receive().value_or(QJsonDocument());
}

bool SwaySocket::run(const QByteArray &command)
{
    return ask(SwayMessage::RunCommand, command)[0]["success"_L1].toBool();
}

SwaySocket::SwaySocket()
{
    const auto path = qEnvironmentVariable("SWAYSOCK");
    if (path.isEmpty())
        return;
    m_socket.connectToServer(path);
    m_socket.waitForConnected(patience);
}

bool SwaySocket::isConnected() const
{
    return m_socket.state() == QLocalSocket::ConnectedState;
}

void SwaySocket::send(SwayMessage message, const QByteArray &payload)
{
    const Head head{static_cast<quint32>(payload.size()), static_cast<quint32>(message)};
    m_socket.write(magic.toByteArray()
                   + QByteArray(reinterpret_cast<const char *>(head.data()), sizeof head)
                   + payload);
    m_socket.flush();
}

std::optional<QJsonDocument> SwaySocket::receive()
{
    const QDeadlineTimer deadline(patience);
    auto message = takeMessage();
    while (!message && m_socket.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
        message = takeMessage();
    return message ? std::optional(message->second) : std::nullopt;
}

void SwaySocket::listen(Handler handler)
{
    m_handler = std::move(handler);
    QObject::connect(&m_socket, &QLocalSocket::readyRead, &m_socket, [this] { deliver(); });
    deliver();
}

void SwaySocket::deliver()
{
    while (const auto message = takeMessage())
        m_handler(message->first, message->second);
}

std::optional<std::pair<SwayMessage, QJsonDocument>> SwaySocket::takeMessage()
{
    Head head{};
    const auto start = m_socket.peek(headSize);
    if (start.size() < headSize)
        return std::nullopt;
    std::memcpy(head.data(), start.constData() + magic.size(), sizeof head);
    if (m_socket.bytesAvailable() < headSize + qint64{head[0]})
        return std::nullopt;
    m_socket.skip(headSize);
    return std::pair(SwayMessage{head[1]}, QJsonDocument::fromJson(m_socket.read(head[0])));
}
