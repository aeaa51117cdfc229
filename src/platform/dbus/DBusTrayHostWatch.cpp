// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DBusTrayHostWatch.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace {

QString watcherService()
{
    return u"org.kde.StatusNotifierWatcher"_s;
}

QString watcherPath()
{
    return u"/StatusNotifierWatcher"_s;
}

} // namespace

DBusTrayHostWatch::DBusTrayHostWatch() = default;

DBusTrayHostWatch::~DBusTrayHostWatch() = default;

void DBusTrayHostWatch::start(Handler handler)
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    m_handler = std::move(handler);
    // A panel's watcher may come first and its host later, or both at once.
    m_serviceWatcher = std::make_unique<QDBusServiceWatcher>(
        watcherService(), bus, QDBusServiceWatcher::WatchForRegistration);
    connect(m_serviceWatcher.get(),
            &QDBusServiceWatcher::serviceRegistered,
            this,
            &DBusTrayHostWatch::askForHost);
    bus.connect({},
                watcherPath(),
                watcherService(),
                u"StatusNotifierHostRegistered"_s,
                this,
                SLOT(reportHost()));
    askForHost();
}

void DBusTrayHostWatch::reportHost()
{
    m_handler();
}

void DBusTrayHostWatch::askForHost()
{
    auto question = QDBusMessage::createMethodCall(
        watcherService(), watcherPath(), u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << watcherService() << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    auto *answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> hasHost = *answer;
        if (hasHost.isValid() && hasHost.value().variant().toBool())
            reportHost();
    });
}
