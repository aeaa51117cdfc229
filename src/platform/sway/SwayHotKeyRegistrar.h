// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"
#include "SwaySocket.h"

#include <QString>

#include <map>
#include <optional>

// Hotkeys as key bindings of sway's, made at run time by the keys' positions. They do nothing but
// tell us. A combination that the user's configuration binds is refused as taken.
class SwayHotKeyRegistrar final : public HotKeyRegistrar
{
public:
    // What a key types without modifiers on the user's keyboard, by its virtual key code.
    using KeyCharacters = std::function<QString(quint32 keyCode)>;

    explicit SwayHotKeyRegistrar(KeyCharacters keyCharacters);
    ~SwayHotKeyRegistrar() override;

    void setHandler(Handler handler) override { m_handler = std::move(handler); }
    [[nodiscard]] int registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers) override;
    void unregisterHotKey(HotKeyId id) override;
    [[nodiscard]] QString takenBy() const override { return m_takenBy; }

private:
    // What the user's configuration does with the combination, if anything.
    [[nodiscard]] std::optional<QString> commandOf(quint32 keyCode, quint32 modifiers) const;
    [[nodiscard]] static bool bind(HotKeyId id, const QByteArray &keys);
    void handleEvent(SwayMessage kind, const QJsonDocument &event);
    void rememberBindings() const;

    KeyCharacters m_keyCharacters;
    SwaySocket m_events;
    Handler m_handler;
    QString m_takenBy;
    std::map<HotKeyId, QByteArray> m_combinations; // as sway's commands name them
    bool m_isSwept = false; // of what an earlier run has left
};
