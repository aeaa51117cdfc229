// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PortalConnection.h"

#include "AppRuntime.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>

#include <atomic>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 1000; // milliseconds

QDBusConnection connectAnew()
{
    static std::atomic<int> connections = 0;
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                         u"portal%1"_s.arg(++connections));
}

// As a portal makes it of a bus name and a token.
QString requestPath(const QDBusConnection &bus, const QString &token)
{
    auto sender = bus.baseService().mid(1);
    return PortalConnection::path + "/request/"_L1 + sender.replace(u'.', u'_') + u'/' + token;
}

} // namespace

QString PortalConnection::interface(QLatin1StringView portal)
{
    return "org.freedesktop.portal."_L1 + portal;
}

bool PortalConnection::offers(QLatin1StringView portal)
{
    auto question = QDBusMessage::createMethodCall(
        service, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << interface(portal) << u"version"_s;
    auto bus = connectAnew(); // there may be no application object yet
    const auto answer = bus.call(question, QDBus::Block, patience);
    QDBusConnection::disconnectFromBus(bus.name());
    return answer.type() == QDBusMessage::ReplyMessage;
}

// Newer portals want to know first who asks, older ones know no such question.
PortalConnection::PortalConnection()
    : m_bus(connectAnew())
{
    auto introduction = QDBusMessage::createMethodCall(
        service, path, u"org.freedesktop.host.portal.Registry"_s, u"Register"_s);
    introduction << QString(AppRuntime::bundleIdentifier) << QVariantMap();
    m_bus.asyncCall(introduction);
    m_bus.connect(service,
                  {},
                  interface("Request"_L1),
                  u"Response"_s,
                  this,
                  SLOT(noteResponse(uint, QVariantMap, QDBusMessage)));
    m_bus.connect(
        service, {}, interface("Session"_L1), u"Closed"_s, this, SLOT(noteClosed(QDBusMessage)));
    auto *const watcher =
        new QDBusServiceWatcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher,
            &QDBusServiceWatcher::serviceOwnerChanged,
            this,
            [this](const QString &, const QString &, const QString &owner) { noteOwner(owner); });
}

PortalConnection::~PortalConnection()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

void PortalConnection::ask(QLatin1StringView portal,
                           const QString &method,
                           QVariantList arguments,
                           QVariantMap options,
                           Answer answer)
{
    const auto token = u"wrenfold%1"_s.arg(++m_requests);
    options[u"handle_token"_s] = token;
    if (method == u"CreateSession"_s)
        options[u"session_handle_token"_s] = token;
    auto question = QDBusMessage::createMethodCall(service, path, interface(portal), method);
    question.setArguments(arguments << options);
    const auto request = requestPath(m_bus, token);
    m_pending[request] = std::move(answer);
    auto *const call = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, request] {
        call->deleteLater();
        if (call->isError())
            this->answer(request, false);
    });
}

void PortalConnection::closeSession(const QString &session)
{
    if (session.isEmpty())
        return;
    m_bus.asyncCall(
        QDBusMessage::createMethodCall(service, session, interface("Session"_L1), u"Close"_s));
}

void PortalConnection::noteResponse(uint code,
                                    const QVariantMap &results,
                                    const QDBusMessage &message)
{
    answer(message.path(), code == 0, results);
}

void PortalConnection::noteClosed(const QDBusMessage &message)
{
    Q_EMIT sessionClosed(message.path());
}

void PortalConnection::noteOwner(const QString &owner)
{
    if (!owner.isEmpty()) {
        Q_EMIT returned();
        return;
    }
    m_pending.clear();
    Q_EMIT ended();
}

void PortalConnection::answer(const QString &request, bool isGranted, const QVariantMap &results)
{
    if (const auto pending = m_pending.extract(request))
        pending.mapped()(isGranted, results);
}
