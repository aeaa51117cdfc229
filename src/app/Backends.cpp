// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Backends.h"

#include "AccessibleFocus.h"
#include "AppLogger.h"
#include "DBusColorSchemeWatch.h"
#include "DBusSessionLock.h"
#include "DBusTrayHostWatch.h"
#include "DataDirectory.h"
#include "Farewell.h"
#include "FileError.h"
#include "GnomeHotKeyRegistrar.h"
#include "GnomeModule.h"
#include "GnomeSyntheticKeyboard.h"
#include "KdeHotKeyRegistrar.h"
#include "MicrophonePermissionStore.h"
#include "MutterRemoteKeyboard.h"
#include "NoHotKeys.h"
#include "PortalHotKeyRegistrar.h"
#include "PortalSyntheticKeyboard.h"
#include "PulseAudioSystem.h"
#include "SecureFile.h"
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
#include "X11TrayWatch.h"
#include "X11WorkArea.h"
#include "XWaylandSyntheticKeyboard.h"

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

// What the user once allowed, for as long as the desktop remembers it too.
PortalRemoteKeyboard::Token storedToken()
{
    const auto file = [] { return DataDirectory::filePath(u"remote-desktop-token"_s); };
    return {[file] {
                try {
                    return QString::fromUtf8(SecureFile::read(file()));
                } catch (const FileError &) { // none yet
                    return QString();
                }
            },
            [file](const QString &token) {
                try {
                    SecureFile::replace(file(), token.toUtf8());
                } catch (const FileError &error) {
                    AppLogger::warning("The desktop will ask again. "_L1
                                       + error.localizedDescription());
                }
            }};
}

// Null when nothing presses keys in the windows of Wayland.
std::unique_ptr<SyntheticKeyboard> makeKeyboardBeyondX(X11InputConnection &input,
                                                       std::function<bool(quint32)> isHotKey)
{
    if (MutterRemoteKeyboard::isThere())
        return std::make_unique<GnomeSyntheticKeyboard>(
            input, &focusedApplicationByAccessibility, std::move(isHotKey));
    if (PortalConnection::offers(PortalRemoteKeyboard::portal))
        return std::make_unique<PortalSyntheticKeyboard>(storedToken());
    return {};
}

// Our windows are X windows here, but what the user works in need not be one.
void reachBeyondX(Backends &backends, X11InputConnection &input)
{
    QString hotKey = u"x11"_s;
    std::function<bool(quint32)> isHotKey = [](quint32) { return false; };
    if (auto keybindings = GnomeModule::openKeybindings()) {
        hotKey = u"gnome-settings"_s;
        auto hotKeys = std::make_unique<GnomeHotKeyRegistrar>(std::move(keybindings), input);
        isHotKey = [hotKeys = hotKeys.get()](quint32 key) { return hotKeys->isLoneModifier(key); };
        backends.hotKeys = std::move(hotKeys);
        backends.modifiers.reset();
    } else if (PortalConnection::offers(PortalHotKeyRegistrar::portal)) {
        hotKey = u"portal"_s;
        backends.hotKeys = std::make_unique<PortalHotKeyRegistrar>(backends.keyCharacters);
        backends.modifiers.reset();
    }
    QString keys = u"xtest"_s;
    if (auto beyondX = makeKeyboardBeyondX(input, std::move(isHotKey))) {
        keys = MutterRemoteKeyboard::isThere() ? u"xtest,mutter"_s : u"xtest,portal"_s;
        backends.keyboard = std::make_unique<XWaylandSyntheticKeyboard>(input, std::move(beyondX));
        backends.clipboard = std::make_unique<X11Clipboard>(X11Reach::XWayland);
        backends.focusReturn = std::make_unique<X11FocusReturn>(X11Reach::XWayland);
    }
    backends.usesXWayland = hotKey == "x11"_L1 || keys == "xtest"_L1;
    backends.ways = DesktopWays::ofXWayland(hotKey, keys);
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

struct HotKeyChoice
{
    QString name;
    std::unique_ptr<HotKeyRegistrar> hotKeys;
};

HotKeyChoice makeHotKeys(bool isSway, const std::function<QString(quint32)> &keyCharacters)
{
    if (isSway)
        return {u"sway"_s, std::make_unique<SwayHotKeyRegistrar>(keyCharacters)};
    if (KdeHotKeyRegistrar::isThere())
        return {u"kglobalaccel"_s, std::make_unique<KdeHotKeyRegistrar>(keyCharacters)};
    if (PortalConnection::offers(PortalHotKeyRegistrar::portal))
        return {u"portal"_s, std::make_unique<PortalHotKeyRegistrar>(keyCharacters)};
    return {u"none"_s, std::make_unique<NoHotKeys>()};
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
    auto [hotKeyName, hotKeys] = makeHotKeys(isSway, backends.keyCharacters);
    backends.hotKeys = std::move(hotKeys);
    auto ways = desktop->ways();
    if (!backends.keyboard) {
        backends.keyboard = std::make_unique<PortalSyntheticKeyboard>(storedToken());
        ways.keys = u"portal"_s;
    }
    backends.ways = DesktopWays::ofWayland(hotKeyName, ways);
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
