// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AudioSystem.h"
#include "Clipboard.h"
#include "ColorSchemeWatch.h"
#include "DesktopWays.h"
#include "FocusReturn.h"
#include "HotKeyRegistrar.h"
#include "ModifierMonitor.h"
#include "OverlaySurface.h"
#include "SessionLock.h"
#include "SyntheticKeyboard.h"
#include "TrayHostWatch.h"
#include "WaylandDesktop.h"

#include <QRect>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QScreen;

// The desktop as the application controller uses it, every part behind its interface.
struct Backends
{
    // What some of the parts share; goes last.
    std::shared_ptr<void> connection;
    std::unique_ptr<HotKeyRegistrar> hotKeys;
    // Null where the hotkey service takes modifier keys on their own too.
    std::unique_ptr<ModifierMonitor> modifiers;
    std::unique_ptr<SyntheticKeyboard> keyboard;
    std::unique_ptr<Clipboard> clipboard;
    // Null where a window of ours can be the overlay.
    std::unique_ptr<OverlaySurface> overlay;
    std::unique_ptr<FocusReturn> focusReturn;
    std::unique_ptr<SessionLock> sessionLock;
    std::unique_ptr<AudioSystem> audio;
    std::unique_ptr<ColorSchemeWatch> colorScheme;
    std::vector<std::unique_ptr<TrayHostWatch>> trayHosts;
    // Whether windows can be translucent now.
    std::function<bool()> hasCompositor;
    // What panels leave free of a screen.
    std::function<QRect(const QScreen &)> workArea;
    // What a key, by its virtual key code, types without modifiers; empty when it types nothing.
    std::function<QString(quint32 keyCode)> keyCharacters;
    // Whether this is a Wayland desktop of which only the X programs can be reached.
    bool usesXWayland = false;
    DesktopWays ways;
};

// The desktop this process runs on, with a compositor if that is to be used. Needs the application
// object.
[[nodiscard]] Backends makeBackends(MainQueue &mainQueue,
                                    std::unique_ptr<WaylandDesktop> compositor);
