// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DesktopCheck.h"

#include "InstanceChannel.h"
#include "VirtualKey.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSystemTrayIcon>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Verdict = Finding::Verdict;

namespace {

constexpr int taken = 10;
constexpr int noSuchKey = 2;
constexpr auto permissionLimit = 2s;

// NotDetermined when the desktop does not answer.
MicrophonePermission permissionFor(AudioSystem &audio)
{
    const auto answer = audio.requestMicrophonePermission();
    const QDeadlineTimer limit(permissionLimit);
    while (answer->value(10ms) == MicrophonePermission::NotDetermined && !limit.hasExpired())
        QCoreApplication::processEvents();
    return answer->value();
}

// 0, or why the desktop does not give it, as HotKeyRegistrar tells it. It is given back.
int tryToHave(const Backends &backends, const HotKeyConfig &hotKey)
{
    if (hotKey.isModifierOnly() && backends.modifiers) {
        const bool isWatched = backends.modifiers->start([](const KeyEvent &) {});
        backends.modifiers->stop();
        return isWatched ? 0 : -1;
    }
    const int status =
        backends.hotKeys->registerHotKey(HotKeyId::Main, hotKey.keyCode, hotKey.modifiers);
    backends.hotKeys->unregisterHotKey(HotKeyId::Main);
    return status;
}

QString refusal(int status, const QString &hotKey, const QString &owner)
{
    if (!owner.isEmpty())
        return hotKey + u" has another meaning on this desktop: "_s + owner + u'.';
    switch (status) {
    case taken:
        return hotKey + u" is taken by another program; the display does not tell which."_s;
    case noSuchKey:
        return hotKey + u" has a key that this keyboard has not."_s;
    default:
        return u"this desktop gives programs no hotkeys."_s;
    }
}

} // namespace

Finding DesktopCheck::microphone(AudioSystem &audio)
{
    const auto subject = u"Microphone"_s;
    const auto permission = permissionFor(audio);
    if (permission == MicrophonePermission::Denied
        || permission == MicrophonePermission::Restricted)
        return {Verdict::Fails,
                subject,
                u"the desktop's privacy settings keep it from Wrenfold."_s,
                u"Allow it there."_s};
    if (!audio.isThere())
        return {Verdict::Fails,
                subject,
                u"no sound server answers."_s,
                u"Start one: \"systemctl --user start pipewire-pulse\", or pulseaudio; "
                "\"pactl info\" tells whether it answers."_s};
    const auto name = audio.defaultInputName();
    if (name.isEmpty())
        return {Verdict::Fails,
                subject,
                u"the sound server has none."_s,
                u"Plug one in and choose it as the input in the desktop's sound settings."_s};
    return {Verdict::Works, subject, name + u'.', {}};
}

Finding DesktopCheck::hotKey(const Backends &backends, const HotKeyConfig &hotKey, bool isRunning)
{
    const auto subject = u"Hotkey"_s;
    if (isRunning && InstanceChannel::isHotKeyThere())
        return {Verdict::Works, subject, hotKey.displayName + u" starts a recording."_s, {}};
    const int status = tryToHave(backends, hotKey);
    if (status == 0 && !isRunning)
        return {Verdict::Works, subject, hotKey.displayName + u" is free."_s, {}};
    if (status == 0)
        return {Verdict::Fails,
                subject,
                hotKey.displayName + u" was taken when Wrenfold asked for it, and is free now."_s,
                u"Choose it again on the first page, or start Wrenfold again."_s};
    const auto reason = refusal(status, hotKey.displayName, backends.hotKeys->takenBy());
    if (status != taken && status != noSuchKey)
        return {Verdict::Limited,
                subject,
                reason,
                u"Bind \"wrenfold --toggle\" to a key in the desktop's settings."_s};
    return {Verdict::Fails,
            subject,
            reason,
            u"Choose another on the first page, or bind \"wrenfold --toggle\" to a key in the "
            "desktop's settings."_s};
}

Finding DesktopCheck::escape(HotKeyRegistrar &hotKeys)
{
    const int status = hotKeys.registerHotKey(HotKeyId::Escape, VirtualKey::escape, 0);
    const auto owner = status == 0 ? QString() : hotKeys.takenBy();
    hotKeys.unregisterHotKey(HotKeyId::Escape);
    if (status == 0)
        return {Verdict::Works, u"Escape"_s, u"it can throw a recording away."_s, {}};
    return {Verdict::Limited,
            u"Escape"_s,
            refusal(status, u"Escape"_s, owner),
            u"\"wrenfold --cancel\" throws a recording away; bind it to a key in the desktop's "
            "settings."_s};
}

Finding DesktopCheck::paste(const SyntheticKeyboard &keyboard)
{
    if (keyboard.isTrusted())
        return {Verdict::Works, u"Paste"_s, u"keys can be sent to other programs."_s, {}};
    return {Verdict::Fails,
            u"Paste"_s,
            u"this desktop lets no program send keys to others."_s,
            u"The text is on the clipboard after a dictation; on X11 the server needs its "
            "extension XTEST."_s};
}

// Nothing is put there: what the user has on it is not ours to replace.
Finding DesktopCheck::clipboard(const Backends &backends)
{
    // A compositor's own X programs may pass for a clipboard manager.
    if (backends.clipboard->isKeptAfterUs() && !backends.usesXWayland)
        return {Verdict::Works,
                u"Clipboard"_s,
                u"texts can be put there, and stay when Wrenfold ends."_s,
                {}};
    return {Verdict::Limited,
            u"Clipboard"_s,
            u"texts can be put there; nobody is known to keep them when Wrenfold ends."_s,
            u"Nothing needs to be done; a clipboard manager keeps them."_s};
}

Finding DesktopCheck::overlay(const Backends &backends)
{
    if (backends.hasCompositor())
        return {Verdict::Works, u"Overlay"_s, u"it can be translucent."_s, {}};
    return {Verdict::Limited,
            u"Overlay"_s,
            u"it has hard edges, since no compositor runs."_s,
            u"Nothing needs to be done; picom is one."_s};
}

Finding DesktopCheck::tray()
{
    if (QSystemTrayIcon::isSystemTrayAvailable())
        return {Verdict::Works, u"Tray"_s, u"the panel has a place for the icon."_s, {}};
    return {Verdict::Limited,
            u"Tray"_s,
            u"no panel shows icons."_s,
            u"\"wrenfold --show\" and the entry in the menu open the window; on GNOME, the "
            "extension AppIndicator shows icons."_s};
}
