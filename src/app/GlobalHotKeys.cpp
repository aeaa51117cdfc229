// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "GlobalHotKeys.h"

#include "AppLogger.h"
#include "HotKeyFormatter.h"
#include "StatusToolTip.h"
#include "Text.h"
#include "VirtualKey.h"

#include <utility>

using namespace Qt::StringLiterals;

GlobalHotKeys::GlobalHotKeys(HotKeyRegistrar &registrar,
                             ModifierMonitor *monitor,
                             MainQueue &mainQueue,
                             Callbacks callbacks)
    : m_registrar(registrar)
    , m_monitor(monitor)
    , m_mainQueue(mainQueue)
    , m_callbacks(std::move(callbacks))
{}

GlobalHotKeys::~GlobalHotKeys()
{
    giveBack();
    m_registrar.setHandler({});
    m_registrar.setLossHandler({});
}

void GlobalHotKeys::giveBack()
{
    removeModifierHotKeyMonitor();
    m_registrar.unregisterHotKey(HotKeyId::Main);
    m_registrar.unregisterHotKey(HotKeyId::Escape);
}

void GlobalHotKeys::installHotKeyHandler()
{
    if (m_isHandlerInstalled)
        return;
    m_isHandlerInstalled = true;
    m_registrar.setHandler([this](HotKeyId id) {
        queue(id == HotKeyId::Escape ? m_callbacks.cancelRecording : m_callbacks.toggleRecording);
    });
    m_registrar.setLossHandler([this](HotKeyId) {
        queue([this] {
            AppLogger::warning(
                u"The hotkey is not ours: the user has refused it to the desktop."_s);
            m_combination.reset();
        });
    });
}

void GlobalHotKeys::registerHotKey()
{
    const auto hotKey = m_callbacks.hotKey();
    AppLogger::info("Registering hotkey. displayName="_L1 + hotKey.displayName + " modifierOnly="_L1
                    + flagText(hotKey.isModifierOnly()));
    m_registrar.unregisterHotKey(HotKeyId::Main);
    m_combination.reset();
    removeModifierHotKeyMonitor();
    if (!hotKey.isModifierOnly() || m_monitor == nullptr) {
        registerCombination(hotKey);
        return;
    }
    installModifierHotKeyMonitor();
    showToolTip(hotKey);
    AppLogger::info("Modifier-only hotkey monitor installed. displayName="_L1 + hotKey.displayName);
}

void GlobalHotKeys::registerCombination(const HotKeyConfig &hotKey)
{
    if (!takeCombination(hotKey))
        return;
    showToolTip(hotKey);
    AppLogger::info("Hotkey registered. displayName="_L1 + hotKey.displayName);
    if (m_isSuspended)
        m_registrar.unregisterHotKey(HotKeyId::Main);
}

bool GlobalHotKeys::takeCombination(const HotKeyConfig &hotKey)
{
    const int status = m_registrar.registerHotKey(HotKeyId::Main, hotKey.keyCode, hotKey.modifiers);
    m_combination = status == 0 ? std::optional(hotKey) : std::nullopt;
    if (status == 0)
        return true;
    AppLogger::error("Hotkey registration failed. displayName="_L1 + hotKey.displayName
                     + " status="_L1 + QString::number(status));
    if (const auto owner = m_registrar.takenBy(); !owner.isEmpty()) {
        AppLogger::warning("The desktop has this hotkey itself. owner="_L1 + owner);
        m_callbacks.refused(hotKey, owner);
    }
    return false;
}

void GlobalHotKeys::suspendHotKey()
{
    m_isSuspended = true;
    m_registrar.unregisterHotKey(HotKeyId::Main);
}

void GlobalHotKeys::resumeHotKey()
{
    const auto combination = m_combination;
    if (std::exchange(m_isSuspended, false) && combination)
        static_cast<void>(takeCombination(*combination));
}

void GlobalHotKeys::registerEscapeCancelHotKey()
{
    unregisterEscapeCancelHotKey();
    static_cast<void>(m_registrar.registerHotKey(HotKeyId::Escape, VirtualKey::escape, 0));
}

void GlobalHotKeys::unregisterEscapeCancelHotKey()
{
    m_registrar.unregisterHotKey(HotKeyId::Escape);
}

void GlobalHotKeys::installModifierHotKeyMonitor()
{
    m_modifierHotKeyIsDown = false;
    // A display that cannot be watched leaves the hotkey without effect, as a refused monitor does.
    m_isMonitoring = m_monitor->start([this](const KeyEvent &event) {
        queue([this, event] { handleModifierHotKeyEvent(event); });
    });
}

void GlobalHotKeys::removeModifierHotKeyMonitor()
{
    if (m_monitor != nullptr)
        m_monitor->stop();
    m_isMonitoring = false;
    m_modifierHotKeyIsDown = false;
}

void GlobalHotKeys::handleModifierHotKeyEvent(const KeyEvent &event)
{
    const auto &hotKey = m_callbacks.hotKey();
    if (!hotKey.isModifierOnly() || event.keyCode != hotKey.keyCode)
        return;
    const bool isDown = HotKeyFormatter::carbonValueContains(event.modifierFlags, hotKey.modifiers);
    const bool isPressed = isDown && !m_modifierHotKeyIsDown;
    m_modifierHotKeyIsDown = isDown;
    // A combination does not even come to us then.
    if (isPressed && !m_callbacks.isKeyboardHeld())
        m_callbacks.toggleRecording();
}

void GlobalHotKeys::showToolTip(const HotKeyConfig &hotKey) const
{
    m_callbacks.setToolTip(statusToolTip(hotKey));
}

void GlobalHotKeys::queue(std::function<void()> action)
{
    m_mainQueue.post([alive = std::weak_ptr(m_lifetime), action = std::move(action)] {
        if (!alive.expired())
            action();
    });
}
