// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "KdeHotKeyRegistrar.h"

#include "AppRuntime.h"
#include "KdeKey.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int taken = 10;
constexpr int noSuchKey = 2;
constexpr int noHotKeys = -1;

constexpr int patience = 1000; // milliseconds
// A key that is held tells of its press 25 times a second.
constexpr auto longestSilence = 1000ms;

// How a shortcut is set: in force now, and not as it was the last time.
constexpr uint setPresent = 2;
constexpr uint noAutoloading = 4;

QString service()
{
    return u"org.kde.kglobalaccel"_s;
}

// Waits for the answer, which comes from the compositor itself.
QVariantList ask(const QString &method, const QVariantList &arguments)
{
    auto question = QDBusMessage::createMethodCall(
        service(), u"/kglobalaccel"_s, u"org.kde.KGlobalAccel"_s, method);
    question.setArguments(arguments);
    const auto answer = QDBusConnection::sessionBus().call(question, QDBus::Block, patience);
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments() : QVariantList();
}

// Component and action, and what the system settings call them.
QStringList actionOf(HotKeyId id)
{
    const bool isEscape = id == HotKeyId::Escape;
    return {AppRuntime::bundleIdentifier,
            isEscape ? u"cancel"_s : u"toggle"_s,
            AppRuntime::appName,
            isEscape ? u"取消录音"_s : u"开始或停止录音"_s};
}

} // namespace

bool KdeHotKeyRegistrar::isThere()
{
    const auto bus = QDBusConnection::sessionBus();
    return bus.isConnected() && bus.interface()->isServiceRegistered(service());
}

KdeHotKeyRegistrar::KdeHotKeyRegistrar(KeyCharacters keyCharacters)
    : m_keyCharacters(std::move(keyCharacters))
{}

KdeHotKeyRegistrar::~KdeHotKeyRegistrar()
{
    for (const auto id : {HotKeyId::Main, HotKeyId::Escape})
        unregisterHotKey(id);
}

// Not in the constructor: a launch that finds another instance running touches nothing. The service
// keeps what a program that has crashed had taken; registered anew it is ours to give back.
bool KdeHotKeyRegistrar::begin()
{
    if (std::exchange(m_hasBegun, true))
        return true;
    for (const auto id : {HotKeyId::Main, HotKeyId::Escape}) {
        ask(u"doRegister"_s, {actionOf(id)});
        ask(u"setInactive"_s, {actionOf(id)});
    }
    const auto component = ask(u"getComponent"_s, {QString(AppRuntime::bundleIdentifier)});
    if (component.isEmpty())
        return m_hasBegun = false;
    const auto path = component[0].value<QDBusObjectPath>().path();
    const auto interface = u"org.kde.kglobalaccel.Component"_s;
    auto bus = QDBusConnection::sessionBus();
    return bus.connect(service(),
                       path,
                       interface,
                       u"globalShortcutPressed"_s,
                       this,
                       SLOT(notePress(QString, QString, qlonglong)))
        && bus.connect(service(),
                       path,
                       interface,
                       u"globalShortcutReleased"_s,
                       this,
                       SLOT(noteRelease(QString, QString, qlonglong)));
}

int KdeHotKeyRegistrar::registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers)
{
    m_takenBy.clear();
    if (!begin())
        return noHotKeys;
    unregisterHotKey(id);
    const auto key = kdeKey(keyCode, modifiers, m_keyCharacters(keyCode));
    if (!key)
        return noSuchKey;
    ask(u"doRegister"_s, {actionOf(id)});
    const auto set = ask(u"setShortcut"_s,
                         {actionOf(id),
                          QVariant::fromValue(QList<int>{*key}),
                          QVariant::fromValue(setPresent | noAutoloading)});
    if (set.isEmpty())
        return noHotKeys;
    if (qdbus_cast<QList<int>>(set[0]).value(0) == *key)
        return 0;
    m_takenBy = ask(u"action"_s, {*key}).value(0).toStringList().value(2);
    return taken;
}

void KdeHotKeyRegistrar::unregisterHotKey(HotKeyId id)
{
    if (m_hasBegun)
        ask(u"setInactive"_s, {actionOf(id)});
    m_held.erase(actionOf(id)[1]);
}

void KdeHotKeyRegistrar::notePress(const QString &, const QString &action, qlonglong)
{
    const auto now = Clock::now();
    const auto held = m_held.find(action);
    const bool isRepeat = held != m_held.end() && now - held->second < longestSilence;
    m_held[action] = now;
    for (const auto id : {HotKeyId::Main, HotKeyId::Escape})
        if (!isRepeat && m_handler && action == actionOf(id)[1])
            m_handler(id);
}

void KdeHotKeyRegistrar::noteRelease(const QString &, const QString &action, qlonglong)
{
    m_held.erase(action);
}
