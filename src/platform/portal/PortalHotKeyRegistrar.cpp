// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PortalHotKeyRegistrar.h"

#include "KeyNames.h"
#include "ModifierKeys.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// As the portal has it.
struct PortalShortcut
{
    QString id;
    QVariantMap properties;
};
Q_DECLARE_METATYPE(PortalShortcut)

static QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

namespace {

constexpr int noSuchKey = 2;
constexpr int noHotKeys = -1;
// Some portals tell of a press again while the key is held.
constexpr auto longestSilence = 1000ms;

QString toggle()
{
    return u"toggle"_s;
}

// In the words of the desktop's shortcuts, "CTRL+ALT+k"; empty for what cannot be one.
QString triggerOf(quint32 keyCode, quint32 modifiers, const QString &characters)
{
    const auto names = keyNames(keyCode, characters);
    if (names.size() < 2 || ModifierKeys::find(keyCode) != nullptr)
        return {};
    static constexpr std::pair<quint32, QLatin1StringView> words[] = {
        {StoredModifier::control, "CTRL+"_L1},
        {StoredModifier::option, "ALT+"_L1},
        {StoredModifier::shift, "SHIFT+"_L1},
        {StoredModifier::command, "LOGO+"_L1}};
    QString trigger;
    for (const auto &[modifier, word] : words)
        if ((modifiers & modifier) != 0)
            trigger += word;
    return trigger + names.constLast();
}

} // namespace

PortalHotKeyRegistrar::PortalHotKeyRegistrar(KeyCharacters keyCharacters)
    : m_keyCharacters(std::move(keyCharacters))
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
}

PortalHotKeyRegistrar::~PortalHotKeyRegistrar() = default;

int PortalHotKeyRegistrar::registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers)
{
    if (id != HotKeyId::Main)
        return noHotKeys;
    unregisterHotKey(id);
    m_trigger = triggerOf(keyCode, modifiers, m_keyCharacters(keyCode));
    if (m_trigger.isEmpty())
        return noSuchKey;
    open();
    return 0;
}

void PortalHotKeyRegistrar::unregisterHotKey(HotKeyId id)
{
    if (id != HotKeyId::Main)
        return;
    ++m_registrations;
    m_trigger.clear();
    if (m_connection)
        m_connection->closeSession(std::exchange(m_session, {}));
}

void PortalHotKeyRegistrar::connectToPortal()
{
    m_connection = std::make_unique<PortalConnection>();
    auto bus = m_connection->bus();
    const auto listen = [this, &bus](const QString &signal, const char *slot) {
        bus.connect(PortalConnection::service,
                    PortalConnection::path,
                    PortalConnection::interface(portal),
                    signal,
                    this,
                    slot);
    };
    listen(u"Activated"_s, SLOT(notePress(QDBusMessage)));
    listen(u"Deactivated"_s, SLOT(noteRelease(QDBusMessage)));
    auto *const connection = m_connection.get();
    connect(connection, &PortalConnection::sessionClosed, this, [this](const QString &session) {
        if (session == m_session)
            lose();
    });
    connect(connection, &PortalConnection::ended, this, [this] { m_session.clear(); });
    connect(connection, &PortalConnection::returned, this, [this] {
        if (!m_trigger.isEmpty())
            open();
    });
}

void PortalHotKeyRegistrar::open()
{
    if (!m_connection)
        connectToPortal();
    const auto opened = [this, registration = ++m_registrations](bool isGranted,
                                                                 const QVariantMap &results) {
        const auto session = results[u"session_handle"_s].toString();
        if (registration != m_registrations)
            m_connection->closeSession(session);
        else if (isGranted)
            bind(session);
        else
            lose();
    };
    m_connection->ask(portal, u"CreateSession"_s, {}, {}, opened);
}

void PortalHotKeyRegistrar::bind(const QString &session)
{
    m_session = session;
    const PortalShortcut shortcut{
        toggle(), {{u"description"_s, u"开始或停止录音"_s}, {u"preferred_trigger"_s, m_trigger}}};
    const auto bound = [this, session](bool isGranted, const QVariantMap &results) {
        const auto shortcuts = qdbus_cast<QList<PortalShortcut>>(results[u"shortcuts"_s]);
        if (session == m_session && (!isGranted || shortcuts.isEmpty()))
            lose();
    };
    m_connection->ask(portal,
                      u"BindShortcuts"_s,
                      {QVariant::fromValue(QDBusObjectPath(session)),
                       QVariant::fromValue(QList<PortalShortcut>{shortcut}),
                       QString()}, // of no window
                      {},
                      bound);
}

// The user's word: the portal is not asked again before the next registration.
void PortalHotKeyRegistrar::lose()
{
    unregisterHotKey(HotKeyId::Main);
    if (m_lost)
        m_lost(HotKeyId::Main);
}

void PortalHotKeyRegistrar::notePress(const QDBusMessage &message)
{
    if (!isOurs(message))
        return;
    const auto now = Clock::now();
    const bool isRepeat = now - std::exchange(m_lastPress, now) < longestSilence;
    if (!isRepeat && m_handler)
        m_handler(HotKeyId::Main);
}

void PortalHotKeyRegistrar::noteRelease(const QDBusMessage &message)
{
    if (isOurs(message))
        m_lastPress = {};
}

bool PortalHotKeyRegistrar::isOurs(const QDBusMessage &message) const
{
    const auto arguments = message.arguments();
    return arguments.size() > 1 && arguments[0].value<QDBusObjectPath>().path() == m_session
        && arguments[1] == toggle();
}
