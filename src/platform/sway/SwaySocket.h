// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonDocument>
#include <QLocalSocket>

#include <functional>
#include <optional>

// What can be asked of sway, by the numbers of its protocol; an event's has the highest bit set.
enum class SwayMessage : quint32 {
    RunCommand = 0,
    Subscribe = 2,
    GetTree = 4,
    GetVersion = 7,
    GetConfig = 9,
    WorkspaceEvent = 0x80000000,
    BindingEvent = 0x80000005,
};

// One connection to sway's own socket, as $SWAYSOCK names it. Used on the thread that made it.
class SwaySocket final
{
public:
    using Handler = std::function<void(SwayMessage, const QJsonDocument &)>;

    // Whether there is a sway that answers.
    [[nodiscard]] static bool isThere();
    // Asks on a connection of its own and waits for the answer, half a second at most; null when
    // there is none. Any thread.
    [[nodiscard]] static QJsonDocument ask(SwayMessage question, const QByteArray &payload = {});

    // Has a command run; false when sway refuses it.
    static bool run(const QByteArray &command);

    SwaySocket();

    [[nodiscard]] bool isConnected() const;
    void send(SwayMessage message, const QByteArray &payload);
    // The next whole message, waited for until the limit has passed.
    [[nodiscard]] std::optional<QJsonDocument> receive();
    // Calls the handler for every message from now on, from the event loop.
    void listen(Handler handler);

private:
    [[nodiscard]] std::optional<std::pair<SwayMessage, QJsonDocument>> takeMessage();
    void deliver();

    QLocalSocket m_socket;
    Handler m_handler;
};
