// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <functional>
#include <map>

class QDBusMessage;

// Questions to the desktop's portals, which may show them to the user, on a bus connection of its
// own. Main thread only.
class PortalConnection final : public QObject
{
    Q_OBJECT
public:
    // Not granted: the user or the portal refused. There is none when the portal ends before.
    using Answer = std::function<void(bool isGranted, const QVariantMap &results)>;

    static inline const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
    static inline const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
    // A portal's interface by the last part of its name.
    [[nodiscard]] static QString interface(QLatin1StringView portal);

    // Whether this desktop has such a portal; waits for its word a second at most. Any thread.
    [[nodiscard]] static bool offers(QLatin1StringView portal);

    PortalConnection();
    ~PortalConnection() override;

    // Asks; the answer comes from the event loop. To the options is added what names the request,
    // and for CreateSession the session.
    void ask(QLatin1StringView portal,
             const QString &method,
             QVariantList arguments,
             QVariantMap options,
             Answer answer);
    // Does nothing for an empty path.
    void closeSession(const QString &session);
    // May be used on any thread.
    [[nodiscard]] QDBusConnection bus() const { return m_bus; }

Q_SIGNALS:
    void sessionClosed(const QString &session);
    // The portal has ended, and all sessions with it.
    void ended();
    // It is there again.
    void returned();

private Q_SLOTS:
    void noteResponse(uint code, const QVariantMap &results, const QDBusMessage &message);
    void noteClosed(const QDBusMessage &message);

private:
    void noteOwner(const QString &owner);
    void answer(const QString &request, bool isGranted, const QVariantMap &results = {});

    QDBusConnection m_bus;
    int m_requests = 0;
    std::map<QString, Answer> m_pending; // by the request's path
};
