// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PortalHotKeyRegistrar.h"
#include "PortalSyntheticKeyboard.h"
#include "WaitUntil.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <future>
#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The desktop's portal, and the user whom it asks.
class FakePortal final : public QDBusVirtualObject
{
public:
    FakePortal()
    {
        m_bus.registerVirtualObject(
            PortalConnection::path, this, QDBusConnection::VirtualObjectRegisterOption::SubPath);
        appear();
    }
    ~FakePortal() override { QDBusConnection::disconnectFromBus(u"desktop"_s); }

    void appear() { EXPECT_TRUE(m_bus.registerService(PortalConnection::service)); }
    void vanish() { EXPECT_TRUE(m_bus.unregisterService(PortalConnection::service)); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
    {
        const auto member = message.member();
        if (member == u"Register"_s)
            return m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, u""_s));
        calls << member;
        const auto arguments = message.arguments();
        if (member == u"Get"_s)
            return m_bus.send(message.createReply(QVariant::fromValue(QDBusVariant(2U))));
        if (member == u"NotifyKeyboardKeycode"_s)
            keys << arguments[2].toInt() * (arguments[3].toUInt() != 0 ? 1 : -1);
        m_bus.send(message.createReply());
        if (member == u"Close"_s || member == u"NotifyKeyboardKeycode"_s)
            return true;
        const auto options = qdbus_cast<QVariantMap>(arguments.constLast());
        const auto results = resultsOf(message, options);
        const bool isRefused = member == refused;
        auto sender = message.service().mid(1);
        send(PortalConnection::path + "/request/"_L1 + sender.replace(u'.', u'_') + u'/'
                 + options[u"handle_token"_s].toString(),
             u"Request.Response"_s,
             {isRefused ? 1U : 0U, isRefused ? QVariantMap() : results});
        return true;
    }

    // A signal of this interface and name.
    void send(const QString &path, const QString &name, const QVariantList &what)
    {
        auto signal = QDBusMessage::createSignal(
            path, "org.freedesktop.portal."_L1 + name.section(u'.', 0, 0), name.section(u'.', 1));
        signal.setArguments(what);
        m_bus.send(signal);
    }
    void endSession() { send(session, u"Session.Closed"_s, {QVariantMap()}); }
    void tellShortcut(const QString &signal)
    {
        send(PortalConnection::path,
             u"GlobalShortcuts."_s + signal,
             {QVariant::fromValue(QDBusObjectPath(session)), u"toggle"_s, 1ULL, QVariantMap()});
    }

    QStringList calls;
    QList<int> keys;
    QString refused; // the question that the user says no to
    QString token; // that a keyboard was asked for with
    QString trigger;
    QString session;

private:
    QVariantMap resultsOf(const QDBusMessage &message, const QVariantMap &options)
    {
        const auto member = message.member();
        if (member == u"CreateSession"_s) {
            session =
                PortalConnection::path + "/session/"_L1 + QString::number(calls.count(member));
            return {{u"session_handle"_s, session}};
        }
        if (member == u"SelectDevices"_s) {
            EXPECT_EQ(options[u"types"_s].toUInt(), 1U);
            EXPECT_EQ(options[u"persist_mode"_s].toUInt(), 2U);
            token = options[u"restore_token"_s].toString();
        }
        if (member == u"Start"_s)
            return {{u"devices"_s, 1U}, {u"restore_token"_s, token + u'1'}};
        if (member == u"BindShortcuts"_s) {
            const auto wanted = message.arguments()[1].value<QDBusArgument>();
            trigger = shortcutsIn(wanted);
            return {{u"shortcuts"_s, message.arguments()[1]}};
        }
        return {};
    }

    static QString shortcutsIn(const QDBusArgument &shortcuts)
    {
        QString id;
        QVariantMap properties;
        shortcuts.beginArray();
        shortcuts.beginStructure();
        shortcuts >> id >> properties;
        return properties[u"preferred_trigger"_s].toString();
    }

    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s);
};

template<typename Work>
auto elsewhere(Work work)
{
    auto result = std::async(std::launch::async, work);
    EXPECT_TRUE(waitUntil([&] { return result.wait_for(0s) == std::future_status::ready; }));
    return result.get();
}

} // namespace

class PortalTest : public testing::Test
{
protected:
    // Whether the keys of a paste were pressed, as AutoPaster goes about it.
    [[nodiscard]] bool pastes(PortalSyntheticKeyboard &keyboard)
    {
        portal.keys.clear();
        EXPECT_TRUE(waitUntil([&] { return keyboard.pasteChordOfFocusedWindow().has_value(); }));
        const bool isPosted = elsewhere([&] { return keyboard.post(PasteChord::ShiftInsert); });
        const QList<int> chord{KEY_LEFTSHIFT, KEY_INSERT, -KEY_INSERT, -KEY_LEFTSHIFT};
        EXPECT_EQ(portal.keys, isPosted ? chord : QList<int>());
        return isPosted;
    }

    FakePortal portal;
    QString token;
    const PortalRemoteKeyboard::Token store{[this] { return token; },
                                            [this](const QString &next) { token = next; }};
};

TEST_F(PortalTest, PastesByAGrantThatIsAskedForOnceAndKept)
{
    EXPECT_TRUE(elsewhere([] { return PortalConnection::offers(PortalRemoteKeyboard::portal); }));
    PortalSyntheticKeyboard keyboard(store);
    keyboard.requestTrust();
    EXPECT_EQ(keyboard.pasteChordOfFocusedWindow(), std::nullopt) << "while it is asked for";
    EXPECT_TRUE(pastes(keyboard));
    EXPECT_TRUE(pastes(keyboard));
    EXPECT_EQ(portal.calls.count(u"Start"_s), 1);
    EXPECT_EQ(token, u"1"_s);
    portal.endSession();
    EXPECT_TRUE(waitUntil([&] { return !keyboard.pasteChordOfFocusedWindow(); }));
    EXPECT_TRUE(pastes(keyboard)) << "after the user has ended the session";
    EXPECT_EQ(token, u"11"_s);
    portal.vanish();
    EXPECT_TRUE(waitUntil([&] { return !keyboard.pasteChordOfFocusedWindow(); }));
    portal.appear();
    EXPECT_TRUE(waitUntil([&] { return keyboard.pasteChordOfFocusedWindow().has_value(); }));
    EXPECT_TRUE(pastes(keyboard)) << "after the portal was started anew";
    PortalSyntheticKeyboard next(store);
    EXPECT_TRUE(pastes(next));
    EXPECT_EQ(portal.token, u"111"_s);
}

TEST_F(PortalTest, IsRefusedKeysOnceAndPressesNone)
{
    for (const auto *const question : {"CreateSession", "SelectDevices", "Start"}) {
        portal.refused = QString::fromLatin1(question);
        portal.calls.clear();
        PortalSyntheticKeyboard keyboard(store);
        EXPECT_FALSE(pastes(keyboard)) << question;
        EXPECT_FALSE(pastes(keyboard)) << question;
        EXPECT_EQ(portal.calls.count(u"CreateSession"_s), 1);
    }
}

TEST_F(PortalTest, HearsTheHotKeyUntilItIsTakenBack)
{
    int presses = 0;
    int losses = 0;
    PortalHotKeyRegistrar hotKeys([](quint32) { return u"k"_s; });
    hotKeys.setHandler([&](HotKeyId) { ++presses; });
    hotKeys.setLossHandler([&](HotKeyId) { ++losses; });
    EXPECT_NE(hotKeys.registerHotKey(HotKeyId::Escape, 53, 0), 0);
    EXPECT_EQ(hotKeys.registerHotKey(HotKeyId::Main, 61, 0x800), 2) << "right Alt";
    const auto registers = [&](qsizetype times) {
        return waitUntil([&] { return portal.calls.count(u"BindShortcuts"_s) == times; });
    };
    ASSERT_EQ(hotKeys.registerHotKey(HotKeyId::Main, 40, 0x1b00), 0); // ⌃⌥⇧⌘K
    ASSERT_TRUE(registers(1));
    EXPECT_EQ(portal.trigger, u"CTRL+ALT+SHIFT+LOGO+k"_s);
    for (int expected = 1; expected < 3; ++expected) {
        portal.tellShortcut(u"Activated"_s);
        portal.tellShortcut(u"Activated"_s); // repeats
        portal.tellShortcut(u"Deactivated"_s);
        EXPECT_TRUE(waitUntil([&] { return presses == expected; }));
    }
    portal.vanish();
    portal.appear();
    ASSERT_TRUE(registers(2)) << "after the portal was started anew";
    portal.tellShortcut(u"Activated"_s);
    EXPECT_TRUE(waitUntil([&] { return presses == 3; }));
    portal.endSession();
    EXPECT_TRUE(waitUntil([&] { return losses == 1; }));
    for (const auto *const question : {"CreateSession", "BindShortcuts"}) {
        portal.refused = QString::fromLatin1(question);
        losses = 0;
        ASSERT_EQ(hotKeys.registerHotKey(HotKeyId::Main, 40, 0x1800), 0);
        EXPECT_TRUE(waitUntil([&] { return losses == 1; })) << question;
    }
    portal.tellShortcut(u"Activated"_s);
    EXPECT_FALSE(waitUntil([&] { return presses != 3 || losses != 1; }, 200ms));
}
