// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TrayPanel.h"

#include "WaitUntil.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// Calls a method of the session bus; `what` is its path, name and arguments.
QString call(const QString &service, const QString &what)
{
    const auto result = runCommand(u"gdbus call --session --dest %1 -o "_s.arg(service) + what);
    return QString::fromUtf8(result.output);
}

QString watcherProperty(const QString &name)
{
    return call(u"org.kde.StatusNotifierWatcher"_s,
                u"/StatusNotifierWatcher -m org.freedesktop.DBus.Properties.Get "
                "org.kde.StatusNotifierWatcher "_s
                    + name);
}

} // namespace

TrayPanel::TrayPanel()
{
    if (!watcherProperty(u"IsStatusNotifierHostRegistered"_s).contains("true"_L1))
        m_panel.start(u"/usr/bin/python3"_s, {QStringLiteral(WRENFOLD_TEST_PANEL)});
}

bool TrayPanel::hasIcon()
{
    return waitUntil([this] {
        const auto items = watcherProperty(u"RegisteredStatusNotifierItems"_s);
        m_icon = QRegularExpression(u".*'([^']+)'"_s).match(items).captured(1);
        return !m_icon.isEmpty();
    });
}

QString TrayPanel::iconProperty(const QString &name) const
{
    return call(m_icon,
                u"/StatusNotifierItem -m org.freedesktop.DBus.Properties.Get "
                "org.kde.StatusNotifierItem "_s
                    + name);
}

bool TrayPanel::awaitToolTip(const QString &text) const
{
    return waitUntil([&] { return iconProperty(u"ToolTip"_s).contains(text); });
}

QString TrayPanel::menu() const
{
    return call(m_icon, u"/MenuBar -m com.canonical.dbusmenu.GetLayout -- 0 -1 []"_s);
}

void TrayPanel::choose(const QString &label) const
{
    const QRegularExpression entry(u"\\((\\d+), \\{[^}]*'label': <'%1'>"_s.arg(label));
    call(m_icon,
         u"/MenuBar -m com.canonical.dbusmenu.Event %1 clicked \"<''>\" 0"_s.arg(
             entry.match(menu()).captured(1)));
}

void TrayPanel::click() const
{
    call(m_icon, u"/StatusNotifierItem -m org.kde.StatusNotifierItem.Activate 0 0"_s);
}

qint64 TrayPanel::millisecondsToAnswer() const
{
    auto question = QDBusMessage::createMethodCall(
        m_icon, u"/StatusNotifierItem"_s, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.kde.StatusNotifierItem"_s << u"Title"_s;
    return millisecondsOf([&] { QDBusConnection::sessionBus().call(question); });
}
