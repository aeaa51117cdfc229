// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MicrophonePermissionStore.h"

#include "AppRuntime.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QMap>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// What the store holds for each application; the empty name stands for all without a sandbox.
using Permissions = QMap<QString, QStringList>;

QDBusMessage lookup()
{
    auto call = QDBusMessage::createMethodCall(u"org.freedesktop.impl.portal.PermissionStore"_s,
                                               u"/org/freedesktop/impl/portal/PermissionStore"_s,
                                               u"org.freedesktop.impl.portal.PermissionStore"_s,
                                               u"Lookup"_s);
    call << u"devices"_s << u"microphone"_s;
    return call;
}

MicrophonePermission permissionIn(const QDBusMessage &reply)
{
    Permissions permissions;
    if (reply.type() == QDBusMessage::ReplyMessage && reply.signature().startsWith(u"a{sas}"_s))
        permissions = qdbus_cast<Permissions>(reply.arguments().constFirst());
    const QString application = AppRuntime::bundleIdentifier;
    const auto answer =
        permissions.value(permissions.contains(application) ? application : QString());
    return answer.contains(u"no"_s) ? MicrophonePermission::Denied
                                    : MicrophonePermission::Authorized;
}

} // namespace

std::shared_ptr<MicrophonePermissionAnswer> MicrophonePermissionStore::request()
{
    auto answer = std::make_shared<MicrophonePermissionAnswer>();
    const auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) { // Qt never tells that such a call has finished
        answer->give(MicrophonePermission::Authorized);
        return answer;
    }
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(lookup()), qApp);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [answer, watcher] {
        answer->give(permissionIn(watcher->reply()));
        watcher->deleteLater();
    });
    return answer;
}
