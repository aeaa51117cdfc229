// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"
#include "SwaySocket.h"

#include <QString>

#include <map>

// Hotkeys as key bindings of sway's, made at run time by the keys' positions. They do nothing but
// tell us.
class SwayHotKeyRegistrar final : public HotKeyRegistrar
{
public:
    SwayHotKeyRegistrar();
    ~SwayHotKeyRegistrar() override;

    void setHandler(Handler handler) override { m_handler = std::move(handler); }
    [[nodiscard]] int registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers) override;
    void unregisterHotKey(HotKeyId id) override;

private:
    void handleEvent(SwayMessage kind, const QJsonDocument &event);

    SwaySocket m_events;
    Handler m_handler;
    std::map<HotKeyId, QByteArray> m_combinations; // as sway's commands name them
};
