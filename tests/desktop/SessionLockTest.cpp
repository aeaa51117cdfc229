// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DBusSessionLock.h"
#include "WaitUntil.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString ownSession = u"/org/freedesktop/login1/session/_37"_s;

// A login manager that knows one session, and a sender of what locks it.
class FakeLoginManager final : public QDBusVirtualObject
{
public:
    FakeLoginManager()
    {
        m_bus.registerVirtualObject(u"/org/freedesktop/login1"_s, this);
        EXPECT_TRUE(m_bus.registerService(u"org.freedesktop.login1"_s));
    }
    ~FakeLoginManager() override { QDBusConnection::disconnectFromBus(u"login"_s); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        isAsked = message.member() == u"GetSession"_s;
        return bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(ownSession))));
    }
    void send(const QString &path, const QString &interface, const QString &name, QVariantList what)
    {
        auto signal = QDBusMessage::createSignal(path, interface, name);
        signal.setArguments(what);
        m_bus.send(signal);
    }

    bool isAsked = false;

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"login"_s);
};

} // namespace

TEST(SessionLockTest, HearsOfScreenSaversAndTheLoginManagersOwnSession)
{
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    FakeLoginManager manager;
    DBusSessionLock lock;
    QStringList told;
    lock.start([&told](bool isLocked) { told << (isLocked ? u"locked"_s : u"free"_s); });
    const auto login = u"org.freedesktop.login1.Session"_s;
    // The answer that names our session is followed by the subscription to it.
    ASSERT_TRUE(waitUntil([&] {
        manager.send(ownSession, login, u"Lock"_s, {});
        return waitUntil([&] { return !told.isEmpty(); }, std::chrono::milliseconds(200));
    }));
    EXPECT_TRUE(manager.isAsked);
    manager.send(ownSession, login, u"Unlock"_s, {});
    ASSERT_TRUE(waitUntil([&] { return told.endsWith(u"free"_s); }));
    told.clear();
    manager.send(u"/org/freedesktop/login1/session/_38"_s, login, u"Lock"_s, {});
    manager.send(ownSession, login, u"Unlock"_s, {});
    EXPECT_TRUE(waitUntil([&] { return !told.isEmpty(); })); // the other bus does not wait for it
    const auto member = u"ActiveChanged"_s;
    manager.send(u"/ScreenSaver"_s, u"org.freedesktop.ScreenSaver"_s, member, {true});
    manager.send(u"/org/gnome/ScreenSaver"_s, u"org.gnome.ScreenSaver"_s, member, {false});
    EXPECT_TRUE(waitUntil([&] { return told.size() >= 3; }));
    EXPECT_EQ(told, (QStringList{u"free"_s, u"locked"_s, u"free"_s}));
}
