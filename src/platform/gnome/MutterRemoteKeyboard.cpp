// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MutterRemoteKeyboard.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>

#include <algorithm>
#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int answerLimitMs = 1000;
// Events that come closer together may lose the modifier, and type a letter.
constexpr auto betweenEvents = 12ms;

QString service()
{
    return u"org.gnome.Mutter.RemoteDesktop"_s;
}

QDBusMessage ask(const QString &path,
                 const QString &interface,
                 const QString &member,
                 const QVariantList &arguments = {})
{
    auto request = QDBusMessage::createMethodCall(service(), path, interface, member);
    request.setArguments(arguments);
    return QDBusConnection::sessionBus().call(request, QDBus::Block, answerLimitMs);
}

// One session with the compositor, over when this is gone. One that stayed would keep the icon.
class Session final
{
public:
    Session()
    {
        const QDBusReply<QDBusObjectPath> session =
            ask(u"/org/gnome/Mutter/RemoteDesktop"_s, service(), u"CreateSession"_s);
        if (session.isValid())
            m_path = session.value().path();
        m_isStarted = session.isValid() && tell(u"Start"_s);
    }
    ~Session()
    {
        if (!m_path.isEmpty())
            tell(u"Stop"_s);
    }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    [[nodiscard]] bool isStarted() const { return m_isStarted; }

    [[nodiscard]] bool move(quint32 key, bool isPress)
    {
        const bool isMoved = tell(u"NotifyKeyboardKeycode"_s, {key, isPress});
        std::this_thread::sleep_for(betweenEvents);
        return isMoved;
    }

private:
    bool tell(const QString &member, const QVariantList &arguments = {}) const
    {
        const auto answer = ask(m_path, service() + ".Session"_L1, member, arguments);
        return answer.type() == QDBusMessage::ReplyMessage;
    }

    QString m_path; // empty when it was refused
    bool m_isStarted = false;
};

} // namespace

bool MutterRemoteKeyboard::isThere()
{
    const auto bus = QDBusConnection::sessionBus();
    return bus.isConnected() && bus.interface()->isServiceRegistered(service());
}

// What was pressed is released even if the compositor refuses on the way.
bool MutterRemoteKeyboard::tap(const std::vector<quint32> &chord)
{
    Session session;
    bool isTapped = session.isStarted();
    if (!isTapped)
        return false;
    for (const auto key : chord)
        isTapped = session.move(key, true) && isTapped;
    std::for_each(chord.rbegin(), chord.rend(), [&](quint32 key) {
        isTapped = session.move(key, false) && isTapped;
    });
    return isTapped;
}
