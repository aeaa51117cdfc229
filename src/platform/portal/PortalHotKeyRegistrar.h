// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"
#include "PortalConnection.h"

#include <chrono>

// The hotkey by the portal for global shortcuts, which asks the user and may give another
// combination than the one that is wanted. It has no Escape for a while only, and no modifier keys
// on their own.
class PortalHotKeyRegistrar final : public QObject, public HotKeyRegistrar
{
    Q_OBJECT
public:
    static constexpr auto portal = QLatin1StringView("GlobalShortcuts");
    // What a key types without modifiers on the user's keyboard, by its virtual key code.
    using KeyCharacters = std::function<QString(quint32 keyCode)>;

    explicit PortalHotKeyRegistrar(KeyCharacters keyCharacters);
    ~PortalHotKeyRegistrar() override;

    void setHandler(Handler handler) override { m_handler = std::move(handler); }
    void setLossHandler(Handler handler) override { m_lost = std::move(handler); }
    [[nodiscard]] int registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers) override;
    void unregisterHotKey(HotKeyId id) override;

private Q_SLOTS:
    void notePress(const QDBusMessage &message);
    void noteRelease(const QDBusMessage &message);

private:
    using Clock = std::chrono::steady_clock;

    void connectToPortal();
    void open();
    void bind(const QString &session);
    void lose();
    [[nodiscard]] bool isOurs(const QDBusMessage &message) const;

    KeyCharacters m_keyCharacters;
    Handler m_handler;
    Handler m_lost;
    std::unique_ptr<PortalConnection> m_connection; // null before the first hotkey
    QString m_trigger; // what is wanted; empty for nothing
    int m_registrations = 0;
    QString m_session; // empty while there is none
    Clock::time_point m_lastPress; // of a key that is held
};
