// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PortalRemoteKeyboard.h"

#include <QDBusMessage>
#include <QDBusObjectPath>

#include <algorithm>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int answerLimitMs = 1000;
// Events that come closer together may lose the modifier, and type a letter.
constexpr auto betweenEvents = 12ms;

constexpr uint keyboardDevice = 1;
constexpr uint untilRevoked = 2;

} // namespace

PortalRemoteKeyboard::PortalRemoteKeyboard(Token token)
    : m_token(std::move(token))
{}

PortalRemoteKeyboard::~PortalRemoteKeyboard() = default;

void PortalRemoteKeyboard::ask()
{
    if (!m_connection) {
        m_connection = std::make_unique<PortalConnection>();
        auto *const connection = m_connection.get();
        connect(connection, &PortalConnection::sessionClosed, this, [this](const QString &session) {
            if (session == m_session)
                m_state = State::Closed;
        });
        connect(connection, &PortalConnection::ended, this, [this] { m_state = State::Closed; });
    }
    if (m_state == State::Asking || m_state == State::Open)
        return;
    m_state = State::Asking;
    m_connection->ask(
        portal, u"CreateSession"_s, {}, {}, [this](bool isGranted, const QVariantMap &results) {
            handleCreated(isGranted, results);
        });
}

void PortalRemoteKeyboard::handleCreated(bool isGranted, const QVariantMap &results)
{
    if (!isGranted) {
        m_state = State::Refused;
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_session = results[u"session_handle"_s].toString();
    }
    QVariantMap wanted{{u"types"_s, keyboardDevice}, {u"persist_mode"_s, untilRevoked}};
    if (const auto token = m_token.load(); !token.isEmpty())
        wanted[u"restore_token"_s] = token;
    m_connection->ask(portal,
                      u"SelectDevices"_s,
                      {QVariant::fromValue(QDBusObjectPath(m_session))},
                      wanted,
                      [this](bool isSelected, const QVariantMap &) {
                          if (isSelected)
                              start();
                          else
                              m_state = State::Refused;
                      });
}

void PortalRemoteKeyboard::start()
{
    m_connection->ask(
        portal,
        u"Start"_s,
        {QVariant::fromValue(QDBusObjectPath(m_session)), QString()}, // of no window
        {},
        [this](bool isGranted, const QVariantMap &results) { handleStarted(isGranted, results); });
}

// A token is good for one start, which gives the next.
void PortalRemoteKeyboard::handleStarted(bool isGranted, const QVariantMap &results)
{
    const bool hasKeyboard = (results[u"devices"_s].toUInt() & keyboardDevice) != 0;
    m_token.save(isGranted ? results[u"restore_token"_s].toString() : QString());
    m_state = isGranted && hasKeyboard ? State::Open : State::Refused;
}

bool PortalRemoteKeyboard::isAnswered()
{
    auto closed = State::Closed;
    if (m_state.compare_exchange_strong(closed, State::Wanted))
        QMetaObject::invokeMethod(this, &PortalRemoteKeyboard::ask, Qt::QueuedConnection);
    const auto state = m_state.load();
    return state == State::Open || state == State::Refused;
}

bool PortalRemoteKeyboard::tap(const std::vector<quint32> &chord)
{
    if (m_state != State::Open)
        return false;
    const auto session = [this] {
        const std::lock_guard lock(m_mutex);
        return m_session;
    }();
    bool isTapped = true;
    for (const auto key : chord)
        isTapped = move(session, key, true) && isTapped;
    std::for_each(chord.rbegin(), chord.rend(), [&](quint32 key) {
        isTapped = move(session, key, false) && isTapped;
    });
    return isTapped;
}

bool PortalRemoteKeyboard::move(const QString &session, quint32 key, bool isPress)
{
    auto event = QDBusMessage::createMethodCall(PortalConnection::service,
                                                PortalConnection::path,
                                                PortalConnection::interface(portal),
                                                u"NotifyKeyboardKeycode"_s);
    event << QVariant::fromValue(QDBusObjectPath(session)) << QVariantMap() << static_cast<int>(key)
          << (isPress ? 1U : 0U);
    const auto answer = m_connection->bus().call(event, QDBus::Block, answerLimitMs);
    std::this_thread::sleep_for(betweenEvents);
    return answer.type() == QDBusMessage::ReplyMessage;
}
