// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Backends.h"

#include "DBusColorSchemeWatch.h"
#include "DBusSessionLock.h"
#include "DBusTrayHostWatch.h"
#include "MicrophonePermissionStore.h"
#include "PulseAudioSystem.h"
#include "X11Clipboard.h"
#include "X11Compositor.h"
#include "X11FocusReturn.h"
#include "X11HotKeyRegistrar.h"
#include "X11InputConnection.h"
#include "X11KeyCharacters.h"
#include "X11ModifierMonitor.h"
#include "X11SyntheticKeyboard.h"
#include "X11TrayWatch.h"
#include "X11WorkArea.h"

Backends makeBackends()
{
    const auto input = std::make_shared<X11InputConnection>();
    Backends backends{
        .connection = input,
        .hotKeys = std::make_unique<X11HotKeyRegistrar>(*input),
        .modifiers = std::make_unique<X11ModifierMonitor>(*input),
        .keyboard = std::make_unique<X11SyntheticKeyboard>(*input),
        .clipboard = std::make_unique<X11Clipboard>(),
        .focusReturn = std::make_unique<X11FocusReturn>(),
        .sessionLock = std::make_unique<DBusSessionLock>(),
        .audio = std::make_unique<PulseAudioSystem>(&MicrophonePermissionStore::request),
        .colorScheme = std::make_unique<DBusColorSchemeWatch>(),
        .trayHosts = {},
        .hasCompositor = &hasCompositor,
        .workArea = &workArea,
        .keyCharacters = &charactersTypedBy,
    };
    backends.trayHosts.push_back(std::make_unique<DBusTrayHostWatch>());
    backends.trayHosts.push_back(std::make_unique<X11TrayWatch>());
    return backends;
}
