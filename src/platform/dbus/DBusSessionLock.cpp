// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DBusSessionLock.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace {

// The names under which desktops tell of their screen savers.
const char *const screenSavers[] = {"org.freedesktop.ScreenSaver",
                                    "org.gnome.ScreenSaver",
                                    "org.mate.ScreenSaver",
                                    "org.cinnamon.ScreenSaver",
                                    "org.xfce.ScreenSaver"};

QString loginService()
{
    return u"org.freedesktop.login1"_s;
}

} // namespace

void DBusSessionLock::start(Handler handler)
{
    m_handler = std::move(handler);
    auto bus = QDBusConnection::sessionBus();
    for (const auto *const name : screenSavers)
        bus.connect(
            {}, {}, QString::fromLatin1(name), u"ActiveChanged"_s, this, SLOT(reportActive(bool)));
    followLoginSession();
}

void DBusSessionLock::followLoginSession()
{
    auto question = QDBusMessage::createMethodCall(loginService(),
                                                   u"/org/freedesktop/login1"_s,
                                                   u"org.freedesktop.login1.Manager"_s,
                                                   u"GetSession"_s);
    question << u"auto"_s; // the session of this process, else the one the user looks at
    auto *answer =
        new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> session = *answer;
        if (!session.isValid())
            return;
        const auto path = session.value().path();
        const auto interface = u"org.freedesktop.login1.Session"_s;
        auto bus = QDBusConnection::systemBus();
        bus.connect(loginService(), path, interface, u"Lock"_s, this, SLOT(reportLock()));
        bus.connect(loginService(), path, interface, u"Unlock"_s, this, SLOT(reportUnlock()));
    });
}

void DBusSessionLock::reportActive(bool isActive)
{
    m_handler(isActive);
}

void DBusSessionLock::reportLock()
{
    m_handler(true);
}

void DBusSessionLock::reportUnlock()
{
    m_handler(false);
}
