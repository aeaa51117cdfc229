// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PortalConnection.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

// Keys by the portal for remote desktops, which asks the user once: the grant is a token that is
// kept for the next time.
class PortalRemoteKeyboard final : public QObject
{
    Q_OBJECT
public:
    static constexpr auto portal = QLatin1StringView("RemoteDesktop");

    // Where the token is kept. Main thread.
    struct Token
    {
        std::function<QString()> load; // empty when there is none
        std::function<void(const QString &)> save;
    };

    explicit PortalRemoteKeyboard(Token token);
    ~PortalRemoteKeyboard() override;

    // Asks the user, if need be. Main thread.
    void ask();
    // Whether the answer is there. When there was none yet, or the session is gone since, it is
    // asked for now. Any thread.
    [[nodiscard]] bool isAnswered();
    // Presses the keys, by the kernel's codes, in their order and releases them in reverse, which
    // takes about 15 ms a key. False when it was refused. Any thread but the main one.
    [[nodiscard]] bool tap(const std::vector<quint32> &chord);

private:
    enum class State { Closed, Wanted, Asking, Open, Refused };

    void handleCreated(bool isGranted, const QVariantMap &results);
    void start();
    void handleStarted(bool isGranted, const QVariantMap &results);
    [[nodiscard]] bool move(const QString &session, quint32 key, bool isPress);

    Token m_token;
    std::unique_ptr<PortalConnection> m_connection; // null before the first question
    std::atomic<State> m_state = State::Closed;
    std::mutex m_mutex; // for the session
    QString m_session;
};
