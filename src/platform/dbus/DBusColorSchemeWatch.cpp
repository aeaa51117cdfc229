// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DBusColorSchemeWatch.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace {

// color-scheme: 0 no preference, 1 prefer dark, 2 prefer light.
constexpr uint preferDark = 1;

QString service()
{
    return u"org.freedesktop.portal.Desktop"_s;
}

QString path()
{
    return u"/org/freedesktop/portal/desktop"_s;
}

QString interface()
{
    return u"org.freedesktop.portal.Settings"_s;
}

// The portal wraps its answer twice.
ColorScheme schemeIn(const QDBusVariant &answer)
{
    const auto value = qvariant_cast<QDBusVariant>(answer.variant()).variant();
    return value.toUInt() == preferDark ? ColorScheme::Dark : ColorScheme::Light;
}

} // namespace

void DBusColorSchemeWatch::start(Handler handler)
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    m_handler = std::move(handler);
    bus.connect(service(), path(), interface(), u"SettingChanged"_s, this, SLOT(ask()));
    ask();
}

void DBusColorSchemeWatch::ask()
{
    auto question = QDBusMessage::createMethodCall(service(), path(), interface(), u"Read"_s);
    question << u"org.freedesktop.appearance"_s << u"color-scheme"_s;
    auto *answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> value = *answer;
        if (value.isValid())
            m_handler(schemeIn(value.value()));
    });
}
