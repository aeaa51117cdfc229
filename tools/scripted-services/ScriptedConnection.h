// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ScriptedHttpServer.h"

#include <QObject>
#include <QTimer>

#include <memory>

class QTcpSocket;
class ScriptedListener;

// One accepted connection of a ScriptedHttpServer: reads requests and plays their answers.
class ScriptedConnection final : public QObject
{
    Q_OBJECT
public:
    // Takes the socket over and ends with it.
    ScriptedConnection(ScriptedListener &listener, std::unique_ptr<QTcpSocket> socket);
    ~ScriptedConnection() override;

private:
    void readMore();
    void take(const QByteArray &received);
    [[nodiscard]] bool takeHead();
    void completeRequest();
    void play();
    void sendWhole();
    void tunnel();
    void drip();
    void sendPart(const QByteArray &bytes);
    void reset();
    [[nodiscard]] QByteArray answerHead() const;

    ScriptedListener &m_listener;
    std::unique_ptr<QTcpSocket> m_socket;
    QByteArray m_received;
    qsizetype m_bodySize = -1; // -1 until the head is complete
    RecordedRequest m_request;
    ScriptedAnswer m_answer;
    QTcpSocket *m_tunnel = nullptr; // a child of m_socket
    QTimer m_dripTimer;
    QTimer m_slowTimer;
    qsizetype m_dripped = 0;
};
