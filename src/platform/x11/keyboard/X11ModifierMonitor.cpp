// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11ModifierMonitor.h"

#include "KeyCodes.h"
#include "X11InputConnection.h"

#include <QGuiApplication>

namespace {

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
        if (const auto code = virtualKeyCodeOf(key); KeyCodes::modifierFlag(code) != 0)
            m_down.insert(code);
    return true;
}

void X11ModifierMonitor::stop()
{
    m_input.removeListener(this);
    m_down.clear();
    m_reported.clear();
}

void X11ModifierMonitor::handleStroke(const KeyStroke &stroke)
{
    const auto code = virtualKeyCodeOf(stroke.key);
    if (KeyCodes::modifierFlag(code) == 0)
        return;
    if (stroke.isPress)
        m_down.insert(code);
    else
        m_down.erase(code);
    // Who was told of a press is told of its release, wherever that goes.
    const bool wasReported = m_reported.erase(code) > 0;
    const bool isOurs = QGuiApplication::focusWindow() != nullptr;
    if (isOurs && (stroke.isPress || !wasReported))
        return;
    if (stroke.isPress)
        m_reported.insert(code);
    m_handler({code, flags(), std::nullopt});
}

quint32 X11ModifierMonitor::flags() const
{
    quint32 flags = 0;
    for (const auto code : m_down)
        flags |= KeyCodes::modifierFlag(code);
    return flags;
}
