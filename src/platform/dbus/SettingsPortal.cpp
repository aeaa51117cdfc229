// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SettingsPortal.h"

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

QString appearance()
{
    return u"org.freedesktop.appearance"_s;
}

QString colorScheme()
{
    return u"color-scheme"_s;
}

} // namespace

void SettingsPortal::start(Handler handler)
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    m_handler = std::move(handler);
    bus.connect(service(),
                path(),
                interface(),
                u"SettingChanged"_s,
                this,
                SLOT(takeChange(QString, QString, QDBusVariant)));

    auto question = QDBusMessage::createMethodCall(service(), path(), interface(), u"Read"_s);
    question << appearance() << colorScheme();
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> value = *answer;
        if (value.isValid())
            take(value.value().variant());
    });
}

void SettingsPortal::takeChange(const QString &nameSpace,
                                const QString &key,
                                const QDBusVariant &value)
{
    if (nameSpace == appearance() && key == colorScheme())
        take(value.variant());
}

void SettingsPortal::take(const QVariant &value)
{
    // Read's answer is wrapped twice.
    const auto inner = value.userType() == qMetaTypeId<QDBusVariant>()
        ? value.value<QDBusVariant>().variant()
        : value;
    m_handler(inner.toUInt() == preferDark ? ColorScheme::Dark : ColorScheme::Light);
}
