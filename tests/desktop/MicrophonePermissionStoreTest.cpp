// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MicrophonePermissionStore.h"
#include "WaitUntil.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Permissions = QMap<QString, QStringList>;

// A store that takes its time with the look-up of the microphone.
class FakePermissionStore final : public QDBusVirtualObject
{
public:
    FakePermissionStore()
    {
        qDBusRegisterMetaType<Permissions>();
        m_bus.registerVirtualObject(u"/org/freedesktop/impl/portal/PermissionStore"_s, this);
        EXPECT_TRUE(m_bus.registerService(u"org.freedesktop.impl.portal.PermissionStore"_s));
    }
    ~FakePermissionStore() override { QDBusConnection::disconnectFromBus(u"store"_s); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
    {
        const QVariantList expected{u"devices"_s, u"microphone"_s};
        if (message.member() != u"Lookup"_s || message.arguments() != expected)
            return false;
        m_question = message;
        return true;
    }
    bool isAsked() const { return m_question.type() == QDBusMessage::MethodCallMessage; }
    // Answers with the record; without one, that there is none.
    void answer(const std::optional<Permissions> &permissions)
    {
        const auto data = QVariant::fromValue(QDBusVariant(0));
        m_bus.send(permissions
                       ? m_question.createReply({QVariant::fromValue(*permissions), data})
                       : m_question.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s,
                                                     u"No entry for microphone"_s));
    }

private:
    QDBusMessage m_question;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"store"_s);
};

MicrophonePermission awaited(const MicrophonePermissionAnswer &answer)
{
    EXPECT_TRUE(waitUntil([&] { return answer.value() != MicrophonePermission::NotDetermined; }));
    return answer.value();
}

} // namespace

TEST(MicrophonePermissionStoreTest, DeniesOnlyWhatTheDesktopDeniesHoweverLate)
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
    EXPECT_EQ(awaited(*MicrophonePermissionStore::request()), granted);
    for (const auto &[permissions, expected] : cases) {
        FakePermissionStore store;
        const auto answer = MicrophonePermissionStore::request();
        ASSERT_TRUE(waitUntil([&] { return store.isAsked(); }));
        EXPECT_EQ(answer->value(), MicrophonePermission::NotDetermined);
        store.answer(permissions);
        EXPECT_EQ(awaited(*answer), expected);
    }
}
