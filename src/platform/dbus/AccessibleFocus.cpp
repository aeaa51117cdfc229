// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AccessibleFocus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QDBusReply>
#include <QDBusVariant>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// For an answer; one application that hangs must not hold up the others.
constexpr int focusAnswerLimitMs = 150;
// Of the first word of an object's states.
constexpr quint32 activeState = 1U << 1;

struct Accessible
{
    QString service;
    QString path;
};

QDBusConnection accessibilityBus()
{
    const auto name = u"accessibility"_s;
    if (QDBusConnection(name).isConnected())
        return QDBusConnection(name);
    const auto question = QDBusMessage::createMethodCall(
        u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s);
    const QDBusReply<QString> address =
        QDBusConnection::sessionBus().call(question, QDBus::Block, focusAnswerLimitMs);
    return QDBusConnection::connectToBus(address.value(), name);
}

QDBusPendingCall ask(const QDBusConnection &bus, const Accessible &object, const QString &member)
{
    const auto question = QDBusMessage::createMethodCall(
        object.service, object.path, u"org.a11y.atspi.Accessible"_s, member);
    return bus.asyncCall(question, focusAnswerLimitMs);
}

std::vector<QDBusPendingCall>
askAll(const QDBusConnection &bus, const std::vector<Accessible> &objects, const QString &member)
{
    std::vector<QDBusPendingCall> questions;
    questions.reserve(objects.size());
    for (const auto &object : objects)
        questions.push_back(ask(bus, object, member));
    return questions;
}

// The answer's only argument, waited for; absent when there is none.
std::optional<QDBusArgument> answerOf(QDBusPendingCall question)
{
    question.waitForFinished();
    if (question.isError() || question.reply().arguments().isEmpty())
        return std::nullopt;
    return question.reply().arguments().constFirst().value<QDBusArgument>();
}

std::vector<Accessible> childrenIn(const QDBusPendingCall &question)
{
    std::vector<Accessible> children;
    const auto list = answerOf(question);
    if (!list || list->currentType() != QDBusArgument::ArrayType)
        return children;
    const auto &answer = *list;
    answer.beginArray();
    while (!answer.atEnd()) {
        Accessible child;
        QDBusObjectPath path;
        answer.beginStructure();
        answer >> child.service >> path;
        answer.endStructure();
        child.path = path.path();
        children.push_back(child);
    }
    answer.endArray();
    return children;
}

bool isActiveIn(const QDBusPendingCall &question)
{
    const auto states = answerOf(question);
    if (!states || states->currentType() != QDBusArgument::ArrayType)
        return false;
    const auto words = qdbus_cast<QList<quint32>>(*states);
    return (words.value(0) & activeState) != 0;
}

QString nameOf(const QDBusConnection &bus, const Accessible &application)
{
    auto question = QDBusMessage::createMethodCall(
        application.service, application.path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.a11y.atspi.Accessible"_s << u"Name"_s;
    const QDBusReply<QDBusVariant> name = bus.call(question, QDBus::Block, focusAnswerLimitMs);
    return name.isValid() ? name.value().variant().toString() : QString();
}

bool hasActiveWindow(const QDBusConnection &bus, const QDBusPendingCall &windows)
{
    const auto states = askAll(bus, childrenIn(windows), u"GetState"_s);
    return std::ranges::any_of(states, &isActiveIn);
}

} // namespace

FocusedApplication focusedApplicationByAccessibility()
{
    const auto bus = accessibilityBus();
    if (!bus.isConnected())
        return {};
    const Accessible root{u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s};
    const auto applications = childrenIn(ask(bus, root, u"GetChildren"_s));
    const auto windows = askAll(bus, applications, u"GetChildren"_s);
    for (std::size_t i = 0; i < applications.size(); ++i)
        if (hasActiveWindow(bus, windows[i]))
            return {{nameOf(bus, applications[i]).toUtf8()}, false};
    return {};
}
