// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MicrophonePermissionStore.h"

#include "AppRuntime.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QMap>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr int answerLimitMs = 100;

// What the store holds for each application; the empty name stands for all without a sandbox.
using Permissions = QMap<QString, QStringList>;

Permissions microphonePermissions()
{
    auto call = QDBusMessage::createMethodCall(u"org.freedesktop.impl.portal.PermissionStore"_s,
                                               u"/org/freedesktop/impl/portal/PermissionStore"_s,
                                               u"org.freedesktop.impl.portal.PermissionStore"_s,
                                               u"Lookup"_s);
    call << u"devices"_s << u"microphone"_s;
    const auto reply = QDBusConnection::sessionBus().call(call, QDBus::Block, answerLimitMs);
    if (reply.type() != QDBusMessage::ReplyMessage || !reply.signature().startsWith(u"a{sas}"_s))
        return {};
    return qdbus_cast<Permissions>(reply.arguments().constFirst());
}

} // namespace

MicrophonePermission MicrophonePermissionStore::permission()
{
    const auto permissions = microphonePermissions();
    const QString application = AppRuntime::bundleIdentifier;
    const auto answer =
        permissions.value(permissions.contains(application) ? application : QString());
    return answer.contains(u"no"_s) ? MicrophonePermission::Denied
                                    : MicrophonePermission::Authorized;
}
