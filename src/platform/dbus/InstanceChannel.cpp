// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "InstanceChannel.h"

#include "AppRuntime.h"
#include "ProcessStart.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int answerLimitMs = 1000;
constexpr int closeLimitMs = 100;
// Longer than an instance takes to quit, with a disk that does not answer.
constexpr auto quitLimit = 6s;

// By which a compositor lets a window come to the front. Qt takes it from there.
constexpr auto activationToken = "XDG_ACTIVATION_TOKEN";

constexpr auto objectPath = "/local/wrenfold"_L1;

// The clock is the same in all processes.
qlonglong toMilliseconds(InstanceChannel::Time time)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count();
}

QString member(InstanceCommand command)
{
    switch (command) {
    case InstanceCommand::ShowMainWindow:
        return u"showMainWindow"_s;
    case InstanceCommand::ToggleRecording:
        return u"toggleRecording"_s;
    case InstanceCommand::CancelRecording:
        return u"cancelRecording"_s;
    case InstanceCommand::Quit:
        return u"quit"_s;
    }
    Q_UNREACHABLE();
}

QDBusMessage reply(const QString &member, const QVariantList &arguments = {})
{
    const QString name = AppRuntime::bundleIdentifier;
    auto request = QDBusMessage::createMethodCall(name, objectPath, name, member);
    request.setAutoStartService(false);
    request.setArguments(arguments);
    return QDBusConnection::sessionBus().call(request, QDBus::Block, answerLimitMs);
}

InstanceAnswer answer(const QDBusMessage &reply)
{
    if (!QDBusConnection::sessionBus().isConnected())
        return InstanceAnswer::NoBus;
    if (reply.type() == QDBusMessage::ReplyMessage)
        return InstanceAnswer::Done;
    const bool isNobody = reply.errorName() == QDBusError::errorString(QDBusError::ServiceUnknown)
        || reply.errorName() == "org.freedesktop.DBus.Error.NameHasNoOwner"_L1;
    return isNobody ? InstanceAnswer::NotRunning : InstanceAnswer::NoAnswer;
}

// Whether the process behind this unique name is gone from the bus, within the limit.
bool hasLeft(const QString &uniqueName)
{
    auto bus = QDBusConnection::sessionBus();
    const QDBusServiceWatcher watcher(uniqueName, bus, QDBusServiceWatcher::WatchForUnregistration);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, &loop, &QEventLoop::quit);
    QTimer::singleShot(quitLimit, &loop, &QEventLoop::quit);
    if (bus.interface()->isServiceRegistered(uniqueName))
        loop.exec();
    return !bus.interface()->isServiceRegistered(uniqueName);
}

QDBusMessage nameRequest(const QString &member, const QVariantList &arguments)
{
    auto request = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, member);
    request.setArguments(arguments);
    return request;
}

} // namespace

InstanceChannel::~InstanceChannel()
{
    close();
}

bool InstanceChannel::isRunning()
{
    auto *const bus = QDBusConnection::sessionBus().interface();
    return bus != nullptr && bus->isServiceRegistered(AppRuntime::bundleIdentifier);
}

bool InstanceChannel::isHotKeyThere()
{
    return reply(u"hasHotKey"_s).arguments().value(0).toBool();
}

InstanceAnswer InstanceChannel::ask(InstanceCommand command)
{
    QVariantList arguments;
    if (const auto token = qEnvironmentVariable(activationToken);
        command == InstanceCommand::ShowMainWindow && !token.isEmpty())
        arguments += token;
    // A busy machine may take long from the key to here.
    if (command == InstanceCommand::ToggleRecording)
        arguments += toMilliseconds(processStart());
    return answer(reply(member(command), arguments));
}

InstanceAnswer InstanceChannel::askToQuit()
{
    const auto message = reply(member(InstanceCommand::Quit));
    const auto result = answer(message);
    if (result != InstanceAnswer::Done || hasLeft(message.service()))
        return result;
    return InstanceAnswer::NoAnswer;
}

bool InstanceChannel::open(Handler handler, std::function<bool()> hasHotKey)
{
    close();
    auto bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(objectPath, this, QDBusConnection::ExportScriptableInvokables))
        return false;
    m_handler = std::move(handler);
    m_hasHotKey = std::move(hasHotKey);
    // Not waited for: the launch goes on. Who has the name already is asked before us, and leaves
    // it to us when it goes.
    const QString name = AppRuntime::bundleIdentifier;
    return bus.send(nameRequest(u"RequestName"_s, {name, 0U}));
}

void InstanceChannel::close()
{
    if (!m_handler)
        return;
    m_handler = {};
    auto bus = QDBusConnection::sessionBus();
    bus.unregisterObject(objectPath);
    // Once this is answered, so is whatever was asked before.
    const QString name = AppRuntime::bundleIdentifier;
    bus.call(nameRequest(u"ReleaseName"_s, {name}), QDBus::Block, closeLimitMs);
}

void InstanceChannel::showMainWindow()
{
    handle(InstanceCommand::ShowMainWindow);
}

void InstanceChannel::showMainWindow(const QString &token)
{
    qputenv(activationToken, token.toUtf8());
    handle(InstanceCommand::ShowMainWindow);
    qunsetenv(activationToken); // unless it was needed
}

void InstanceChannel::toggleRecording()
{
    handle(InstanceCommand::ToggleRecording);
}

void InstanceChannel::toggleRecording(qlonglong askedAt)
{
    handle(InstanceCommand::ToggleRecording, Time(std::chrono::milliseconds(askedAt)));
}

void InstanceChannel::cancelRecording()
{
    handle(InstanceCommand::CancelRecording);
}

void InstanceChannel::quit()
{
    handle(InstanceCommand::Quit);
}

bool InstanceChannel::hasHotKey() const
{
    return m_handler && m_hasHotKey();
}

void InstanceChannel::handle(InstanceCommand command, Time askedAt) const
{
    if (!m_handler || !m_handler(command, askedAt))
        setDelayedReply(true);
}
