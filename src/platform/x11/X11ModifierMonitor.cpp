// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11ModifierMonitor.h"

#include "KeyCodes.h"
#include "X11InputConnection.h"

#include <QGuiApplication>

namespace {

// The flag of a modifier key by its virtual key code; 0 for every other key.
quint32 flagOf(quint32 virtualKeyCode)
{
    switch (virtualKeyCode) {
    case 54:
    case 55:
        return ModifierFlag::command;
    case 56:
    case 60:
        return ModifierFlag::shift;
    case 58:
    case 61:
        return ModifierFlag::option;
    case 59:
    case 62:
        return ModifierFlag::control;
    default:
        return 0;
    }
}

quint32 virtualKeyCodeOf(quint8 key)
{
    return KeyCodes::virtualKeyCode(key - KeyCodes::displayOffset).value_or(0);
}

} // namespace

X11ModifierMonitor::X11ModifierMonitor(X11InputConnection &input)
    : m_input(input)
{}

X11ModifierMonitor::~X11ModifierMonitor()
{
    stop();
}

bool X11ModifierMonitor::start(Handler handler)
{
    stop();
    if (!m_input.canWatch())
        return false;
    m_handler = std::move(handler);
    m_input.addListener(this, [this](const KeyStroke &stroke, quint32) { handleStroke(stroke); });
    for (const auto key : m_input.keysDown())
        if (const auto code = virtualKeyCodeOf(key); flagOf(code) != 0)
            m_down.insert(code);
    return true;
}

void X11ModifierMonitor::stop()
{
    m_input.removeListener(this);
    m_down.clear();
}

void X11ModifierMonitor::handleStroke(const KeyStroke &stroke)
{
    const auto code = virtualKeyCodeOf(stroke.key);
    if (flagOf(code) == 0)
        return;
    if (stroke.isPress)
        m_down.insert(code);
    else
        m_down.erase(code);
    if (QGuiApplication::focusWindow() == nullptr)
        m_handler({code, flags(), std::nullopt});
}

quint32 X11ModifierMonitor::flags() const
{
    quint32 flags = 0;
    for (const auto code : m_down)
        flags |= flagOf(code);
    return flags;
}
