// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyRegistrar.h"

// A desktop without global hotkeys.
class NoHotKeys final : public HotKeyRegistrar
{
public:
    void setHandler(Handler) override {}
    [[nodiscard]] int registerHotKey(HotKeyId, quint32, quint32) override { return -1; }
    void unregisterHotKey(HotKeyId) override {}
};
