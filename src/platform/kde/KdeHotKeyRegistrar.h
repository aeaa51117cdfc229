// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"

#include <QObject>
#include <QString>
#include <QVariantList>

#include <chrono>
#include <map>

class QDBusMessage;

// Hotkeys by KDE's own service for them (KGlobalAccel).
class KdeHotKeyRegistrar final : public QObject, public HotKeyRegistrar
{
    Q_OBJECT
public:
    // What a key types without modifiers on the user's keyboard, by its virtual key code.
    using KeyCharacters = std::function<QString(quint32 keyCode)>;

    // Whether the service runs.
    [[nodiscard]] static bool isThere();

    explicit KdeHotKeyRegistrar(KeyCharacters keyCharacters);
    ~KdeHotKeyRegistrar() override;

    void setHandler(Handler handler) override { m_handler = std::move(handler); }
    [[nodiscard]] int registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers) override;
    void unregisterHotKey(HotKeyId id) override;
    [[nodiscard]] QString takenBy() const override { return m_takenBy; }

private Q_SLOTS:
    void notePress(const QString &component, const QString &action, qlonglong time);
    void noteRelease(const QString &component, const QString &action, qlonglong time);

private:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] bool begin();

    KeyCharacters m_keyCharacters;
    Handler m_handler;
    QString m_takenBy;
    bool m_hasBegun = false;
    // Since when a key that is held down has been telling of its press.
    std::map<QString, Clock::time_point> m_held;
};
