// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ScreenReader.h"

#include "AppRuntime.h"
#include "WaitUntil.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// By their numbers in the protocol.
enum State { Checked = 4, Focused = 12, Showing = 25 };
constexpr uint passwordText = 40; // whose name is that of any text

const QString registry = u"org.a11y.atspi.Registry"_s;

QDBusConnection accessibilityBus()
{
    const auto question = QDBusMessage::createMethodCall(
        u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s);
    const QDBusReply<QString> address = QDBusConnection::sessionBus().call(question);
    return QDBusConnection::connectToBus(address.value(), u"screen reader"_s);
}

} // namespace

ScreenReader::ScreenReader()
    : m_bus(accessibilityBus())
{
    for (const auto &event :
         {u"object:property-change:accessible-name"_s, u"object:text-changed"_s})
        call({registry, u"/org/a11y/atspi/registry"_s}, u"Registry.RegisterEvent"_s, {event});
    const auto source = u"org.a11y.atspi.Event.Object"_s;
    for (const auto &event : {u"PropertyChange"_s, u"TextChanged"_s})
        EXPECT_TRUE(m_bus.connect({}, {}, source, event, this, SLOT(hear(QDBusMessage))));
}

QList<ScreenReader::Element> ScreenReader::elements() const
{
    QList<Element> found;
    for (const auto &application : children({registry, u"/org/a11y/atspi/accessible/root"_s}))
        if (name(application) == AppRuntime::appName)
            for (const auto &window : children(application))
                collect(window, found);
    return found;
}

ScreenReader::Element ScreenReader::await(const QString &spoken) const
{
    Element wanted;
    EXPECT_TRUE(waitUntil([&] {
        for (const auto &element : elements())
            if (wanted.spoken.isEmpty() && element.spoken.contains(spoken))
                wanted = element;
        return !wanted.spoken.isEmpty();
    })) << qPrintable(spoken);
    return wanted;
}

void ScreenReader::hear(const QDBusMessage &event)
{
    if (event.member() == "TextChanged"_L1)
        edits += event.arguments().value(3).value<QDBusVariant>().variant().toString();
    else
        newNames << name({event.service(), event.path()});
}

QList<ScreenReader::Object> ScreenReader::children(const Object &object) const
{
    QList<Object> result;
    const auto answer = call(object, u"Accessible.GetChildren"_s);
    if (!answer.isValid())
        return result;
    const auto list = answer.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        Object child;
        QDBusObjectPath path;
        list.beginStructure();
        list >> child.service >> path;
        list.endStructure();
        child.path = path.path();
        result << child;
    }
    return result;
}

QString ScreenReader::name(const Object &object) const
{
    auto question = QDBusMessage::createMethodCall(
        object.service, object.path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.a11y.atspi.Accessible"_s << u"Name"_s;
    return QDBusReply<QDBusVariant>(m_bus.call(question)).value().variant().toString();
}

QVariant
ScreenReader::call(const Object &object, const QString &method, const QVariantList &arguments) const
{
    const auto dot = method.indexOf(u'.');
    auto question = QDBusMessage::createMethodCall(object.service,
                                                   object.path,
                                                   u"org.a11y.atspi."_s + method.first(dot),
                                                   method.sliced(dot + 1));
    question.setArguments(arguments);
    const auto answer = m_bus.call(question);
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0) : QVariant();
}

void ScreenReader::collect(const Object &object, QList<Element> &found) const
{
    const auto states = qdbus_cast<QList<uint>>(call(object, u"Accessible.GetState"_s)).value(0);
    const auto has = [states](State state) { return (states >> state & 1U) != 0; };
    if (!has(Showing))
        return;
    const auto role = call(object, u"Accessible.GetRole"_s).toUInt() == passwordText
        ? u"password text"_s
        : call(object, u"Accessible.GetRoleName"_s).toString();
    found << Element{role + u": "_s + name(object) + (has(Checked) ? u" ✓"_s : QString()),
                     call(object, u"Text.GetText"_s, {0, -1}).toString(),
                     qdbus_cast<QRect>(call(object, u"Component.GetExtents"_s, {0U})),
                     has(Focused)};
    if (role != "combo box"_L1)
        for (const auto &child : children(object))
            collect(child, found);
}
