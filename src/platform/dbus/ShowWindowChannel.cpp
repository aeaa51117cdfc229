// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ShowWindowChannel.h"

#include "AppRuntime.h"

#include <QDBusConnection>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace {

constexpr int answerLimitMs = 1000;

QString path()
{
    return u"/local/wrenfold"_s;
}

QString member()
{
    return u"showMainWindow"_s;
}

QString answerMember()
{
    return u"mainWindowShown"_s;
}

// The bus handles one client's messages in their order: once it answers, it has those before.
bool hasTakenEverything(const QDBusConnection &bus)
{
    const auto ping = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s,
                                                     u"/org/freedesktop/DBus"_s,
                                                     u"org.freedesktop.DBus.Peer"_s,
                                                     u"Ping"_s);
    return bus.call(ping, QDBus::Block, answerLimitMs).type() == QDBusMessage::ReplyMessage;
}

} // namespace

ShowWindowChannel::~ShowWindowChannel()
{
    stop();
}

bool ShowWindowChannel::post(std::function<void()> answered)
{
    auto bus = QDBusConnection::sessionBus();
    m_answered = std::move(answered);
    bus.connect(
        {}, path(), AppRuntime::bundleIdentifier, answerMember(), this, SLOT(handleAnswer()));
    const auto request = QDBusMessage::createSignal(path(), AppRuntime::bundleIdentifier, member());
    return bus.isConnected() && bus.send(request) && hasTakenEverything(bus);
}

bool ShowWindowChannel::observe(std::function<void()> handler)
{
    stop();
    m_answered = {};
    auto bus = QDBusConnection::sessionBus();
    if (!bus.connect(
            {}, path(), AppRuntime::bundleIdentifier, member(), this, SLOT(handleRequest())))
        return false;
    m_handler = std::move(handler);
    return true;
}

void ShowWindowChannel::stop()
{
    if (!m_handler)
        return;
    QDBusConnection::sessionBus().disconnect(
        {}, path(), AppRuntime::bundleIdentifier, member(), this, SLOT(handleRequest()));
    m_handler = {};
}

void ShowWindowChannel::handleRequest()
{
    if (!m_handler)
        return;
    m_handler();
    QDBusConnection::sessionBus().send(
        QDBusMessage::createSignal(path(), AppRuntime::bundleIdentifier, answerMember()));
}

void ShowWindowChannel::handleAnswer()
{
    if (m_answered)
        m_answered();
}
