// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Backends.h"

#include "AccessibleFocus.h"
#include "DBusColorSchemeWatch.h"
#include "DBusSessionLock.h"
#include "DBusTrayHostWatch.h"
#include "Farewell.h"
#include "GnomeHotKeyRegistrar.h"
#include "GnomeModule.h"
#include "GnomeSyntheticKeyboard.h"
#include "KdeHotKeyRegistrar.h"
#include "MicrophonePermissionStore.h"
#include "MutterRemoteKeyboard.h"
#include "NoHotKeys.h"
#include "PulseAudioSystem.h"
#include "SwayFocus.h"
#include "SwayHotKeyRegistrar.h"
#include "SwaySocket.h"
#include "WaylandSession.h"
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

#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

// What every desktop has.
Backends commonBackends()
{
    Backends backends;
    backends.sessionLock = std::make_unique<DBusSessionLock>();
    backends.audio = std::make_unique<PulseAudioSystem>(&MicrophonePermissionStore::request);
    backends.colorScheme = std::make_unique<DBusColorSchemeWatch>();
    backends.trayHosts.push_back(std::make_unique<DBusTrayHostWatch>());
    return backends;
}

// On GNOME's Wayland our windows are X windows, but what the user works in need not be one.
void reachBeyondX(Backends &backends, X11InputConnection &input)
{
    auto keybindings = GnomeModule::openKeybindings();
    const bool canPress = MutterRemoteKeyboard::isThere();
    backends.usesXWayland = !keybindings || !canPress;
    backends.ways = DesktopWays::ofXWayland(keybindings != nullptr, canPress);
    std::function<bool(quint32)> isHotKey = [](quint32) { return false; };
    if (keybindings) {
        auto hotKeys = std::make_unique<GnomeHotKeyRegistrar>(std::move(keybindings), input);
        isHotKey = [hotKeys = hotKeys.get()](quint32 key) { return hotKeys->isLoneModifier(key); };
        backends.hotKeys = std::move(hotKeys);
        backends.modifiers.reset();
    }
    if (canPress) {
        backends.keyboard = std::make_unique<GnomeSyntheticKeyboard>(
            input, &focusedApplicationByAccessibility, std::move(isHotKey));
        backends.clipboard = std::make_unique<X11Clipboard>(X11Reach::XWayland);
        backends.focusReturn = std::make_unique<X11FocusReturn>(X11Reach::XWayland);
    }
}

Backends backendsOfX11()
{
    const auto input = std::make_shared<X11InputConnection>();
    auto backends = commonBackends();
    backends.connection = input;
    backends.hotKeys = std::make_unique<X11HotKeyRegistrar>(*input);
    backends.modifiers = std::make_unique<X11ModifierMonitor>(*input);
    backends.keyboard = std::make_unique<X11SyntheticKeyboard>(*input);
    backends.clipboard = std::make_unique<X11Clipboard>();
    backends.focusReturn = std::make_unique<X11FocusReturn>();
    backends.trayHosts.push_back(std::make_unique<X11TrayWatch>());
    backends.hasCompositor = &hasCompositor;
    backends.workArea = &workArea;
    backends.keyCharacters = &charactersTypedBy;
    backends.ways = DesktopWays::ofX11(backends.keyboard->isTrusted());
    if (WaylandSession::isCurrent())
        reachBeyondX(backends, *input);
    return backends;
}

// The service and what it is called; none when nothing lets us hear a key everywhere.
std::pair<std::unique_ptr<HotKeyRegistrar>, QString>
makeHotKeys(bool isSway, const std::function<QString(quint32)> &keyCharacters)
{
    if (isSway)
        return {std::make_unique<SwayHotKeyRegistrar>(keyCharacters), u"sway"_s};
    if (KdeHotKeyRegistrar::isThere())
        return {std::make_unique<KdeHotKeyRegistrar>(keyCharacters), u"kglobalaccel"_s};
    return {std::make_unique<NoHotKeys>(), u"none"_s};
}

Backends backendsOf(const std::shared_ptr<WaylandDesktop> &desktop)
{
    const bool isSway = SwaySocket::isThere();
    auto backends = commonBackends();
    backends.connection = desktop;
    backends.clipboard = desktop->makeClipboard();
    backends.focusReturn = desktop->makeFocusReturn();
    backends.keyboard =
        desktop->makeKeyboard(isSway ? &focusedApplicationInSway : FocusedApplication::Finder());
    backends.overlay = desktop->makeOverlay();
    backends.hasCompositor = [] { return true; };
    backends.workArea = [](const QScreen &screen) { return screen.availableGeometry(); };
    backends.keyCharacters = [desktop](quint32 key) { return desktop->charactersTypedBy(key); };
    QString hotKeys;
    std::tie(backends.hotKeys, hotKeys) = makeHotKeys(isSway, backends.keyCharacters);
    backends.ways = DesktopWays::ofWayland(hotKeys, desktop->ways());
    return backends;
}

} // namespace

Backends makeBackends(MainQueue &mainQueue, std::unique_ptr<WaylandDesktop> compositor)
{
    if (!compositor)
        return backendsOfX11();
    const std::shared_ptr<WaylandDesktop> desktop = std::move(compositor);
    auto backends = backendsOf(desktop);
    desktop->start(mainQueue, &Farewell::sayAndEnd);
    return backends;
}
