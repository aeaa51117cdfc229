// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11HotKeyRegistrar.h"

#include "KeyCodes.h"
#include "X11InputConnection.h"
#include "X11KeyboardMap.h"
#include "X11Reply.h"
#include "X11RoundTrip.h"
#include "XkbHeader.h"

#include <algorithm>

#include <xcb/xcb.h>

namespace {

constexpr int noDisplay = -1;
constexpr int noSuchKey = 2; // the protocol's "bad value"
constexpr int takenByAnother = 10; // the protocol's "bad access"
// A held key's repeats follow one another more quickly than this, in milliseconds; what comes later
// is a press whose release went unseen.
constexpr quint32 longestRepeatGap = 5000;

} // namespace

X11HotKeyRegistrar::X11HotKeyRegistrar(X11InputConnection &input)
    : m_input(input)
    , m_connection([this](const void *event) { handleEvent(event); })
{
    if (!m_connection.isUsable())
        return;
    prepareKeyboard();
    if (const auto map = X11KeyboardMap::read(m_connection))
        m_bits = X11ModifierBits::of(*map);
}

X11HotKeyRegistrar::~X11HotKeyRegistrar()
{
    m_input.removeListener(this);
}

// Asks that a held key comes as presses only, and to hear of changes of the keyboard map.
void X11HotKeyRegistrar::prepareKeyboard()
{
    auto *const connection = m_connection.get();
    const auto *const extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (extension == nullptr || !extension->present)
        return;
    m_keyboardEvent = extension->first_event;
    const xcb_xkb_device_spec_t keyboard = XCB_XKB_ID_USE_CORE_KBD;
    const auto repeat = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const X11RoundTrip roundTrip(m_connection);
    const auto used =
        replyTo(connection,
                xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
                xcb_xkb_use_extension_reply);
    const auto flags =
        replyTo(connection,
                xcb_xkb_per_client_flags(connection, keyboard, repeat, repeat, 0, 0, 0),
                xcb_xkb_per_client_flags_reply);
    const quint16 events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    const quint16 parts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_xkb_select_events(connection, keyboard, events, 0, events, parts, parts, nullptr);
}

int X11HotKeyRegistrar::registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers)
{
    unregisterHotKey(id);
    if (!m_connection.isUsable())
        return noDisplay;
    const auto kernelCode = KeyCodes::kernelCode(keyCode);
    if (!kernelCode)
        return noSuchKey;
    const Grab wanted{static_cast<quint8>(*kernelCode + KeyCodes::displayOffset), modifiers};
    const auto known = std::ranges::find_if(
        m_grabs, [&wanted](const auto &entry) { return entry.second.isSameKey(wanted); });
    if (known != m_grabs.end() && !known->second.isLeaving)
        return takenByAnother;
    if (known != m_grabs.end()) {
        m_grabs.erase(known); // still grabbed
    } else if (const int status = grab(wanted); status != 0) {
        return status;
    }
    m_grabs.emplace(id, wanted);
    noteIfHeld(wanted.key);
    return 0;
}

// The repeats of a key that is down already are no presses of the hotkey: it may be the very press
// that the user chose it with.
void X11HotKeyRegistrar::noteIfHeld(quint8 key)
{
    const auto isDown = [this, key] { return std::ranges::count(m_input.keysDown(), key) > 0; };
    if (m_heldSince.contains(key) || !m_input.canWatch() || !isDown())
        return;
    watchReleases();
    if (isDown())
        m_heldSince.emplace(key, std::nullopt);
    else if (m_heldSince.empty())
        m_input.removeListener(this);
}

void X11HotKeyRegistrar::unregisterHotKey(HotKeyId id)
{
    const auto [first, last] = m_grabs.equal_range(id);
    const auto active =
        std::find_if(first, last, [](const auto &entry) { return !entry.second.isLeaving; });
    if (active == last)
        return;
    if (m_heldSince.contains(active->second.key)) {
        active->second.isLeaving = true;
        return;
    }
    ungrab(active->second);
    m_grabs.erase(active);
}

int X11HotKeyRegistrar::grab(const Grab &combination)
{
    const auto state = m_bits.stateFor(combination.modifiers);
    if (!state)
        return noSuchKey;
    auto *const connection = m_connection.get();
    const X11RoundTrip roundTrip(m_connection);
    std::vector<xcb_void_cookie_t> requests;
    for (const auto locks : m_bits.lockCombinations())
        requests.push_back(xcb_grab_key_checked(connection,
                                                1,
                                                m_connection.root(),
                                                static_cast<quint16>(*state | locks),
                                                combination.key,
                                                XCB_GRAB_MODE_ASYNC,
                                                XCB_GRAB_MODE_ASYNC));
    int status = m_connection.isUsable() ? 0 : noDisplay;
    for (const auto request : requests) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection, request));
        if (error && status == 0)
            status = error->error_code;
    }
    if (status != 0)
        ungrab(combination);
    return status;
}

void X11HotKeyRegistrar::ungrab(const Grab &combination) const
{
    const auto state = m_bits.stateFor(combination.modifiers).value_or(0);
    for (const auto locks : m_bits.lockCombinations())
        xcb_ungrab_key(m_connection.get(),
                       combination.key,
                       m_connection.root(),
                       static_cast<quint16>(state | locks));
    xcb_flush(m_connection.get());
}

void X11HotKeyRegistrar::handleEvent(const void *event)
{
    const int type = static_cast<const xcb_generic_event_t *>(event)->response_type & 0x7f;
    if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
        const auto *const key = static_cast<const xcb_key_press_event_t *>(event);
        if (type == XCB_KEY_PRESS)
            handlePress(key->detail, key->state, key->time);
        else
            handleRelease(key->detail, key->time);
    } else if (type == m_keyboardEvent && m_keyboardEvent != 0) {
        updateModifierBits();
    }
}

void X11HotKeyRegistrar::handlePress(quint8 key, quint16 state, quint32 time)
{
    // The release before this press comes on the other connection, and may not be read yet.
    if (m_heldSince.contains(key) && m_input.canWatch())
        m_input.catchUp();
    const auto held = m_heldSince.find(key);
    const bool isRepeat =
        held != m_heldSince.end() && (!held->second || time - *held->second < longestRepeatGap);
    m_heldSince[key] = time;
    if (!isRepeat)
        if (const auto id = hotKeyFor(key, state); id && m_handler)
            m_handler(*id);
    if (!m_input.canWatch())
        return; // the keyboard stays grabbed until the release, which tells of it
    // Watched before the keyboard is freed, so that the release is seen one way or the other.
    if (m_heldSince.size() == 1 && !isRepeat)
        watchReleases();
    xcb_ungrab_keyboard(m_connection.get(), XCB_CURRENT_TIME);
    xcb_flush(m_connection.get());
}

void X11HotKeyRegistrar::watchReleases()
{
    m_input.addListener(this, [this](const KeyStroke &stroke, quint32 time) {
        if (!stroke.isPress)
            handleRelease(stroke.key, time);
    });
}

void X11HotKeyRegistrar::handleRelease(quint8 key, quint32 time)
{
    const auto held = m_heldSince.find(key);
    if (held == m_heldSince.end())
        return;
    // The two connections may tell of a release late, when the key is down again.
    if (held->second && static_cast<qint32>(time - *held->second) < 0)
        return;
    m_heldSince.erase(held);
    if (m_heldSince.empty())
        m_input.removeListener(this);
    std::erase_if(m_grabs, [this, key](const auto &entry) {
        const auto &[id, grab] = entry;
        if (!grab.isLeaving || grab.key != key)
            return false;
        ungrab(grab);
        return true;
    });
}

// Every change between a physical keyboard and posted keys is announced as a new map, so at each
// paste: only other bits are worth new grabs.
void X11HotKeyRegistrar::updateModifierBits()
{
    const auto map = X11KeyboardMap::read(m_connection);
    if (!map)
        return;
    const auto bits = X11ModifierBits::of(*map);
    if (bits == m_bits)
        return;
    for (const auto &[id, grab] : m_grabs)
        ungrab(grab);
    m_bits = bits;
    // A combination that is refused now stays ours in name, and is tried again at the next change.
    for (const auto &[id, combination] : m_grabs)
        static_cast<void>(grab(combination));
}

std::optional<HotKeyId> X11HotKeyRegistrar::hotKeyFor(quint8 key, quint16 state) const
{
    const auto locks = m_bits.lockCombinations().back();
    const auto pressed = state & 0xff & ~locks;
    for (const auto &[id, grab] : m_grabs)
        if (grab.key == key && !grab.isLeaving && m_bits.stateFor(grab.modifiers) == pressed)
            return id;
    return std::nullopt;
}
