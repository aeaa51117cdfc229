// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyConfig.h"
#include "HotKeyRegistrar.h"
#include "MainQueue.h"
#include "ModifierMonitor.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

// Makes the configured hotkey work system-wide, an ordinary one by the desktop's hotkey service and
// a lone modifier key by watching the modifiers, and Escape while a recording runs. Main thread
// only.
class GlobalHotKeys final
{
public:
    // What the hotkeys need of the application. The actions run as ordinary work of the main queue.
    struct Callbacks
    {
        std::function<const HotKeyConfig &()> hotKey;
        std::function<void()> toggleRecording;
        std::function<void()> cancelRecording;
        std::function<void(const QString &)> setToolTip;
        // Whether another program holds the keyboard: its keys are none of ours then.
        std::function<bool()> isKeyboardHeld;
        // The combination belongs to somebody else, as the desktop says.
        std::function<void(const HotKeyConfig &, const QString &owner)> refused;
    };

    // Without a monitor the registrar takes modifier keys on their own too.
    GlobalHotKeys(HotKeyRegistrar &registrar,
                  ModifierMonitor *monitor,
                  MainQueue &mainQueue,
                  Callbacks callbacks);
    ~GlobalHotKeys();
    GlobalHotKeys(const GlobalHotKeys &) = delete;
    GlobalHotKeys &operator=(const GlobalHotKeys &) = delete;

    // Installs the handler of hotkey presses, once.
    void installHotKeyHandler();
    // Leaves every key to the desktop: some keep what a program that has ended had taken.
    void giveBack();
    // Puts the configured hotkey in the place of the one before. A combination that cannot be had
    // is logged and leaves none.
    void registerHotKey();
    // Whether the configured hotkey is ours, even while it is suspended.
    [[nodiscard]] bool hasHotKey() const { return m_combination || m_isMonitoring; }
    // Leaves the combination to whoever has the focus until it is resumed, so that it can be chosen
    // again. A combination that is registered meanwhile is given back likewise once it is known to
    // be free. A lone modifier key needs none of this: it is not watched in our own windows.
    void suspendHotKey();
    // Takes the combination back; that it cannot be had any more is logged and leaves none.
    void resumeHotKey();
    // Makes Escape cancel the recording; that it cannot be had is ignored: it does not cancel then.
    void registerEscapeCancelHotKey();
    void unregisterEscapeCancelHotKey();

    void installModifierHotKeyMonitor();
    void removeModifierHotKeyMonitor();
    // Toggles when the configured modifier key goes down; its release arms it again.
    void handleModifierHotKeyEvent(const KeyEvent &event);

    // Names the hotkey in the status item's tool tip, whether it is registered or not.
    void showToolTip(const HotKeyConfig &hotKey) const;

private:
    void registerCombination(const HotKeyConfig &hotKey);
    [[nodiscard]] bool takeCombination(const HotKeyConfig &hotKey);
    void queue(std::function<void()> action);

    HotKeyRegistrar &m_registrar;
    ModifierMonitor *m_monitor;
    MainQueue &m_mainQueue;
    Callbacks m_callbacks;
    bool m_isHandlerInstalled = false;
    bool m_isMonitoring = false;
    bool m_modifierHotKeyIsDown = false;
    // The combination that is ours, even while it is suspended.
    std::optional<HotKeyConfig> m_combination;
    bool m_isSuspended = false;
    // Gone with this object: queued work asks it first.
    std::shared_ptr<char> m_lifetime = std::make_shared<char>();
};
