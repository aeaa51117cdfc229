// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11SyntheticKeyboard.h"

#include "FocusedWindow.h"
#include "KeyboardMap.h"
#include "PhysicalKeys.h"
#include "X11InputConnection.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include <X11/keysym.h>

using namespace std::chrono_literals;

namespace {

constexpr auto longestWait = 100ms;
constexpr auto waitStep = 4ms;

struct ChordKeys
{
    quint8 modifier = 0;
    quint8 key = 0;
};

std::optional<ChordKeys> keysOf(PasteChord chord, const KeyboardMap &map)
{
    const bool isControlV = chord == PasteChord::ControlV;
    const auto key = map.keyTyping(isControlV ? XK_v : XK_Insert);
    const auto &modifiers =
        map.modifierKeys(isControlV ? KeyboardMap::ControlRow : KeyboardMap::ShiftRow);
    if (!key || modifiers.empty())
        return std::nullopt;
    return ChordKeys{modifiers.front(), *key};
}

std::vector<KeyStroke> strokes(const std::vector<quint8> &keys, bool isPress)
{
    std::vector<KeyStroke> result;
    for (const auto key : keys)
        result.push_back({key, isPress});
    return result;
}

} // namespace

X11SyntheticKeyboard::X11SyntheticKeyboard(X11InputConnection &input)
    : m_input(input)
{}

X11SyntheticKeyboard::~X11SyntheticKeyboard() = default;

bool X11SyntheticKeyboard::isTrusted() const
{
    return m_input.canPost();
}

PasteChord X11SyntheticKeyboard::pasteChordOfFocusedWindow()
{
    auto *const connection = m_input.connection().get();
    const bool isTerminal = isFocusedWindowTerminal(connection);
    const auto map = KeyboardMap::read(connection);
    return isTerminal || !map || !map->keyTyping(XK_v) ? PasteChord::ShiftInsert
                                                       : PasteChord::ControlV;
}

bool X11SyntheticKeyboard::post(PasteChord chord)
{
    const std::lock_guard lock(m_mutex);
    if (!isTrusted())
        return false;
    const auto map = KeyboardMap::read(m_input.connection().get());
    const auto keys = map ? keysOf(chord, *map) : std::nullopt;
    if (!keys)
        return false;
    const auto lifted = waitForModifiers(*map);
    auto sequence = strokes(lifted, false);
    sequence.insert(
        sequence.end(),
        {{keys->modifier, true}, {keys->key, true}, {keys->key, false}, {keys->modifier, false}});
    m_input.post(sequence);
    restore(lifted);
    return true;
}

std::vector<quint8> X11SyntheticKeyboard::heldModifiers(const KeyboardMap &map)
{
    auto held = m_input.keysDown();
    std::erase_if(held, [&map](quint8 key) {
        for (std::size_t row = 0; row < KeyboardMap::rowCount; ++row)
            if (std::ranges::count(map.modifierKeys(row), key) > 0)
                return map.isLockKey(key);
        return true;
    });
    return held;
}

// Gives the user the time to let go; returns what is held nevertheless.
std::vector<quint8> X11SyntheticKeyboard::waitForModifiers(const KeyboardMap &map)
{
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    auto held = heldModifiers(map);
    while (!held.empty() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(waitStep);
        held = heldModifiers(map);
    }
    return held;
}

void X11SyntheticKeyboard::restore(const std::vector<quint8> &lifted)
{
    if (lifted.empty())
        return;
    const auto down = physicalKeysDown(m_input.connection().get());
    std::vector<quint8> still;
    std::ranges::copy_if(
        lifted, std::back_inserter(still), [&down](quint8 key) { return down.contains(key); });
    m_input.post(strokes(still, true));
}
