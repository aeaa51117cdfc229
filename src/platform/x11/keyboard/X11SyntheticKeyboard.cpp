// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11SyntheticKeyboard.h"

#include "PasteChordTable.h"
#include "X11FocusedWindow.h"
#include "X11InputConnection.h"
#include "X11PhysicalKeys.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

#include <X11/keysym.h>

using namespace std::chrono_literals;

namespace {

constexpr auto longestWait = 100ms;
constexpr auto waitStep = 4ms;

struct Chord
{
    quint32 symbol;
    X11KeyboardMap::Row row;
};

Chord partsOf(PasteChord chord)
{
    return chord == PasteChord::ControlV ? Chord{XK_v, X11KeyboardMap::ControlRow}
                                         : Chord{XK_Insert, X11KeyboardMap::ShiftRow};
}

bool isIn(const std::vector<quint8> &keys, quint8 key)
{
    return std::ranges::find(keys, key) != keys.end();
}

// Whether the key, held down, would make another chord of it.
bool wouldSpoil(quint8 key, const Chord &chord, const X11KeyboardMap &map)
{
    return map.isHeldModifier(key) && !isIn(map.modifierKeys(chord.row), key);
}

// Gives the user the time to let go of keys that spoil the chord; returns all that is down then.
std::vector<quint8>
waitForFingers(X11InputConnection &input, const Chord &chord, const X11KeyboardMap &map)
{
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    auto down = input.keysDown();
    while (std::ranges::any_of(down, [&](quint8 key) { return wouldSpoil(key, chord, map); })
           && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(waitStep);
        down = input.keysDown();
    }
    return down;
}

} // namespace

X11SyntheticKeyboard::X11SyntheticKeyboard(X11InputConnection &input)
    : m_input(input)
    , m_keyboard(m_input.canWatch() ? keyboardForPostedKeys(m_input.connection()) : std::nullopt)
{}

X11SyntheticKeyboard::~X11SyntheticKeyboard() = default;

bool X11SyntheticKeyboard::isTrusted() const
{
    return m_input.canPost();
}

bool X11SyntheticKeyboard::isHeldByAnother()
{
    m_input.yieldKeyboard();
    return focusedApplication(m_input.connection()).isKeyboardHeld;
}

std::optional<PasteChord> X11SyntheticKeyboard::pasteChordOfFocusedWindow()
{
    const std::lock_guard lock(m_mutex);
    m_input.yieldKeyboard();
    const auto application = focusedApplication(m_input.connection());
    if (application.isKeyboardHeld)
        return std::nullopt;
    const auto chord = pasteChordOf(application.names);
    m_map = readMap();
    return m_map && m_map->keyTyping(XK_v) ? chord : PasteChord::ShiftInsert;
}

std::optional<X11KeyboardMap> X11SyntheticKeyboard::readMap()
{
    auto &connection = m_input.connection();
    return m_keyboard ? X11KeyboardMap::read(connection, *m_keyboard)
                      : X11KeyboardMap::read(connection);
}

bool X11SyntheticKeyboard::post(PasteChord pasteChord)
{
    const std::lock_guard lock(m_mutex);
    if (!isTrusted())
        return false;
    m_input.yieldKeyboard();
    auto map = std::exchange(m_map, std::nullopt);
    if (!map)
        map = readMap();
    const auto chord = partsOf(pasteChord);
    const auto key = map ? map->keyTyping(chord.symbol) : std::nullopt;
    if (!key || map->modifierKeys(chord.row).empty())
        return false;
    const auto down = waitForFingers(m_input, chord, *map);
    // A modifier of the chord that the user holds stays as it is: its twin is posted.
    auto modifiers = map->modifierKeys(chord.row);
    std::erase_if(modifiers, [&down](quint8 modifier) { return isIn(down, modifier); });
    modifiers.resize(std::min<std::size_t>(modifiers.size(), 1));
    auto lifted = down;
    std::erase_if(lifted, [&](quint8 held) { return !wouldSpoil(held, chord, *map); });
    // The chord's modifier goes down first and up last: a lone Alt or Super going up would open a
    // menu or an overview.
    auto sequence = strokesOf(modifiers, true);
    std::ranges::copy(strokesOf(lifted, false), std::back_inserter(sequence));
    sequence.insert(sequence.end(), {{*key, true}, {*key, false}});
    if (!lifted.empty()) {
        m_input.post(sequence);
        m_input.pressForFingers(lifted);
        sequence.clear();
    }
    std::ranges::copy(strokesOf(modifiers, false), std::back_inserter(sequence));
    m_input.post(sequence);
    return true;
}
