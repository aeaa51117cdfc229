// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "KeyEvent.h"

#include <functional>

// Watches the modifier keys while other applications are in front. Main thread only.
class ModifierMonitor
{
public:
    using Handler = std::function<void(const KeyEvent &)>;

    ModifierMonitor() = default;
    virtual ~ModifierMonitor();
    ModifierMonitor(const ModifierMonitor &) = delete;
    ModifierMonitor &operator=(const ModifierMonitor &) = delete;

    // Calls the handler for every press and release of a modifier key, from the main thread's event
    // loop; not for a key that is pressed while one of our own windows is active, nor for keys we
    // post ourselves.
    // Returns whether the display can be watched at all.
    [[nodiscard]] virtual bool start(Handler handler) = 0;
    // No call of the handler after this. Does nothing when not started.
    virtual void stop() = 0;
};
