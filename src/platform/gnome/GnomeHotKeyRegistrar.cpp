// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "GnomeHotKeyRegistrar.h"

#include "Accelerator.h"
#include "GnomeKeybindings.h"
#include "KeyCodes.h"
#include "ModifierKeys.h"
#include "X11InputConnection.h"
#include "X11KeyboardMap.h"

using namespace Qt::StringLiterals;

namespace {

// As X numbers them.
enum Status { Registered = 0, NoSuchKey = 2, Taken = 10 };

} // namespace

GnomeHotKeyRegistrar::GnomeHotKeyRegistrar(std::unique_ptr<GnomeKeybindings> keybindings,
                                           X11InputConnection &input)
    : m_keybindings(std::move(keybindings))
    , m_input(input)
{}

GnomeHotKeyRegistrar::~GnomeHotKeyRegistrar() = default;

// From here on this is the instance that hotkeys are for: one that crashed may have left Escape.
void GnomeHotKeyRegistrar::setHandler(Handler handler)
{
    if (handler)
        m_keybindings->unbind(HotKeyId::Escape);
}

int GnomeHotKeyRegistrar::registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers)
{
    unregisterHotKey(id);
    m_takenBy.clear();
    // By name, so that it is the key that types Escape, on any layout.
    if (id == HotKeyId::Escape) {
        m_keybindings->bind(id, u"Escape"_s);
        m_registered.insert(id);
        return Registered;
    }
    const auto kernelCode = KeyCodes::kernelCode(keyCode);
    if (!kernelCode)
        return NoSuchKey;
    const bool isModifier = ModifierKeys::find(keyCode) != nullptr;
    const Accelerator wanted{isModifier ? 0 : modifiers, *kernelCode + KeyCodes::displayOffset};
    m_takenBy = ownerOf(wanted);
    if (!m_takenBy.isEmpty())
        return Taken;
    m_keybindings->bind(id, wanted.text());
    m_loneModifier = isModifier ? *kernelCode : 0;
    m_since = std::chrono::steady_clock::now();
    m_registered.insert(id);
    return Registered;
}

void GnomeHotKeyRegistrar::unregisterHotKey(HotKeyId id)
{
    if (m_registered.erase(id) == 0)
        return;
    if (m_registered.empty())
        m_keybindings->removeAll();
    else
        m_keybindings->unbind(id);
}

bool GnomeHotKeyRegistrar::acceptsReportedPress(HotKeyId id, RepeatFilter::Time when)
{
    // What was pressed before was another hotkey. Modifier keys do not repeat.
    if (id == HotKeyId::Main)
        return when >= m_since
            && (m_loneModifier != 0 || m_filter.isPress(when, m_keybindings->keyRepeat()));
    if (!m_registered.contains(id))
        m_keybindings->unbind(id);
    return true;
}

bool GnomeHotKeyRegistrar::isLoneModifier(quint32 kernelCode) const
{
    return m_loneModifier == kernelCode;
}

QString GnomeHotKeyRegistrar::ownerOf(const Accelerator &wanted) const
{
    const auto map = X11KeyboardMap::read(m_input.connection());
    const auto keyTyping = [&map](quint32 symbol) {
        return map ? map->keyTyping(symbol) : std::nullopt;
    };
    return m_keybindings->ownerOf(
        [&](const QString &other) { return Accelerator::parse(other, keyTyping) == wanted; });
}
