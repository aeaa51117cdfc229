// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MicrophonePermissionStore.h"
#include "WaitUntil.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <future>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Permissions = QMap<QString, QStringList>;

// Answers every look-up of the microphone with the same record; never, when it has none.
class FakePermissionStore final : public QDBusVirtualObject
{
public:
    explicit FakePermissionStore(std::optional<Permissions> permissions)
        : m_permissions(std::move(permissions))
    {
        qDBusRegisterMetaType<Permissions>();
        m_bus.registerVirtualObject(u"/org/freedesktop/impl/portal/PermissionStore"_s, this);
        EXPECT_TRUE(m_bus.registerService(u"org.freedesktop.impl.portal.PermissionStore"_s));
    }
    ~FakePermissionStore() override { QDBusConnection::disconnectFromBus(u"store"_s); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        const QVariantList expected{u"devices"_s, u"microphone"_s};
        if (message.member() != u"Lookup"_s || message.arguments() != expected)
            return false;
        const auto data = QVariant::fromValue(QDBusVariant(0));
        if (m_permissions)
            bus.send(message.createReply({QVariant::fromValue(*m_permissions), data}));
        return true;
    }

private:
    std::optional<Permissions> m_permissions;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"store"_s);
};

} // namespace

TEST(MicrophonePermissionStoreTest, DeniesOnlyWhatTheDesktopDenies)
{
    const QString own = u"local.wrenfold"_s;
    const QStringList yes{u"yes"_s};
    const QStringList no{u"no"_s};
    const auto denied = MicrophonePermission::Denied;
    const auto granted = MicrophonePermission::Authorized;
    const std::pair<std::optional<Permissions>, MicrophonePermission> cases[] = {
        {Permissions{{own, no}}, denied},
        {Permissions{{own, yes}}, granted},
        {Permissions{{own, {u"ask"_s}}}, granted},
        {Permissions{{QString(), no}}, denied},
        {Permissions{{own, yes}, {QString(), no}}, granted},
        {Permissions{{u"org.example.Other"_s, no}}, granted},
        {Permissions{}, granted},
        {std::nullopt, granted},
    };
    EXPECT_EQ(MicrophonePermissionStore::permission(), granted);
    for (const auto &[permissions, expected] : cases) {
        const FakePermissionStore store(permissions);
        auto answer = std::async(std::launch::async, &MicrophonePermissionStore::permission);
        EXPECT_TRUE(
            waitUntil([&] { return answer.wait_for(0s) == std::future_status::ready; }, 300ms));
        EXPECT_EQ(answer.get(), expected);
    }
}
