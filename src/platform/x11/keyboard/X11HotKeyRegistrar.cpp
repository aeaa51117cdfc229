// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11HotKeyRegistrar.h"

#include "KeyCodes.h"
#include "VirtualKey.h"
#include "X11InputConnection.h"
#include "X11KeyboardMap.h"
#include "X11Reply.h"
#include "X11RoundTrip.h"
#include "XkbHeader.h"

#include <algorithm>

#include <X11/keysym.h>
#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace {

constexpr int noDisplay = -1;
constexpr int noSuchKey = 2; // the protocol's "bad value"
constexpr int takenByAnother = 10; // the protocol's "bad access"
// A held key's repeats follow one another more quickly than this, in milliseconds; what comes later
// is a press whose release went unseen.
constexpr quint32 longestRepeatGap = 5000;

// Whether an event came just before another that was read first. The server's clock of milliseconds
// starts anew after 49 days, so that what came long before may look later, and never matters.
bool isJustBefore(quint32 time, quint32 other)
{
    return time != other && other - time < longestRepeatGap;
}

} // namespace

X11HotKeyRegistrar::X11HotKeyRegistrar(X11InputConnection &input)
    : m_input(input)
    , m_connection([this](const void *event) { handleEvent(event); })
{
    if (!m_connection.isUsable())
        return;
    prepareKeyboard();
    if (const auto map = X11KeyboardMap::read(m_connection))
        m_keys = keysOf(*map);
    m_input.addKeyboardHolder(this, [this] { yieldKeyboard(); });
}

X11HotKeyRegistrar::~X11HotKeyRegistrar()
{
    m_input.removeKeyboardHolder(this);
    m_input.removeListener(this);
}

X11HotKeyRegistrar::Keys X11HotKeyRegistrar::keysOf(const X11KeyboardMap &map)
{
    return {X11ModifierBits::of(map), map.keyTyping(XK_Escape)};
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
    m_hasInputExtension = m_input.canWatch()
        && replyTo(connection,
                   xcb_input_xi_query_version(connection, 2, 2),
                   xcb_input_xi_query_version_reply);
    const quint16 events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    const quint16 parts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_xkb_select_events(connection, keyboard, events, 0, events, parts, parts, nullptr);
}

int X11HotKeyRegistrar::registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers)
{
    unregisterHotKey(id);
    if (!m_connection.isUsable())
        return noDisplay;
    const auto key = keyFor(keyCode);
    if (!key)
        return noSuchKey;
    const Grab wanted{*key, keyCode, modifiers};
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

// Escape is the key that types it, which need not be the one at its place.
std::optional<quint8> X11HotKeyRegistrar::keyFor(quint32 keyCode) const
{
    if (keyCode == VirtualKey::escape && m_keys.escape)
        return m_keys.escape;
    const auto kernelCode = KeyCodes::kernelCode(keyCode);
    if (!kernelCode)
        return std::nullopt;
    return static_cast<quint8>(*kernelCode + KeyCodes::displayOffset);
}

// The repeats of a key that is down already are no presses of the hotkey: it may be the very press
// that the user chose it with.
void X11HotKeyRegistrar::noteIfHeld(quint8 key)
{
    const auto isDown = [this, key] { return std::ranges::count(m_input.keysDown(), key) > 0; };
    if (m_held.contains(key) || !m_input.canWatch() || !isDown())
        return;
    watchReleases();
    if (isDown())
        setHeld(key, {});
    else if (m_held.empty())
        m_input.removeListener(this);
}

void X11HotKeyRegistrar::unregisterHotKey(HotKeyId id)
{
    const auto [first, last] = m_grabs.equal_range(id);
    const auto active =
        std::find_if(first, last, [](const auto &entry) { return !entry.second.isLeaving; });
    if (active == last)
        return;
    if (m_held.contains(active->second.key)) {
        active->second.isLeaving = true;
        return;
    }
    ungrab(active->second);
    m_grabs.erase(active);
}

int X11HotKeyRegistrar::grab(const Grab &combination)
{
    const auto states = statesOf(combination);
    if (states.empty())
        return noSuchKey;
    auto *const connection = m_connection.get();
    const X11RoundTrip roundTrip(m_connection);
    if (isTakenByInputExtension(combination.key, states))
        return takenByAnother;
    std::vector<xcb_void_cookie_t> requests;
    requests.reserve(states.size());
    for (const auto state : states)
        requests.push_back(xcb_grab_key_checked(connection,
                                                1,
                                                m_connection.root(),
                                                static_cast<quint16>(state),
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

// The server keeps the grabs of the input extension apart from ours: they neither refuse ours nor
// leave it any press. A grab of their kind is refused.
bool X11HotKeyRegistrar::isTakenByInputExtension(quint8 key, const std::vector<quint32> &states)
{
    if (!m_hasInputExtension)
        return false;
    auto *const connection = m_connection.get();
    const auto count = static_cast<quint16>(states.size());
    const auto request = xcb_input_xi_passive_grab_device(connection,
                                                          XCB_CURRENT_TIME,
                                                          m_connection.root(),
                                                          XCB_NONE,
                                                          key,
                                                          XCB_INPUT_DEVICE_ALL_MASTER,
                                                          count,
                                                          0,
                                                          XCB_INPUT_GRAB_TYPE_KEYCODE,
                                                          XCB_INPUT_GRAB_MODE_22_ASYNC,
                                                          XCB_INPUT_GRAB_MODE_22_ASYNC,
                                                          XCB_INPUT_GRAB_OWNER_NO_OWNER,
                                                          nullptr,
                                                          states.data());
    xcb_input_xi_passive_ungrab_device(connection,
                                       m_connection.root(),
                                       key,
                                       XCB_INPUT_DEVICE_ALL_MASTER,
                                       count,
                                       XCB_INPUT_GRAB_TYPE_KEYCODE,
                                       states.data());
    const auto refused = replyTo(connection, request, xcb_input_xi_passive_grab_device_reply);
    return refused && refused->num_modifiers > 0;
}

// Every state of the keyboard in which the combination is pressed.
std::vector<quint32> X11HotKeyRegistrar::statesOf(const Grab &combination) const
{
    std::vector<quint32> states;
    for (const auto state : m_keys.bits.statesFor(combination.modifiers))
        for (const auto locks : m_keys.bits.lockCombinations())
            states.push_back(quint32{state} | locks);
    return states;
}

void X11HotKeyRegistrar::ungrab(const Grab &combination) const
{
    for (const auto state : statesOf(combination))
        xcb_ungrab_key(
            m_connection.get(), combination.key, m_connection.root(), static_cast<quint16>(state));
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
        updateKeys();
    }
}

void X11HotKeyRegistrar::handlePress(quint8 key, quint16 state, quint32 time)
{
    // The release before this press comes on the other connection, and may not be read yet.
    if (m_held.contains(key) && m_input.canWatch())
        m_input.catchUp();
    // The last repeat before a release may be read after it.
    if (const auto from = m_pressableFrom.find(key);
        from != m_pressableFrom.end() && isJustBefore(time, from->second)) {
        freeKeyboard();
        return;
    }
    const auto held = m_held.find(key);
    const bool isRepeat = held != m_held.end()
        && (!held->second.latestPress || time - *held->second.latestPress < longestRepeatGap);
    setHeld(key, {time, isRepeat});
    if (!isRepeat)
        if (const auto id = hotKeyFor(key, state); id && m_handler)
            m_handler(*id);
    if (!m_input.canWatch())
        return; // the keyboard stays grabbed until the release, which tells of it
    // Watched before the keyboard is freed, so that the release is seen one way or the other.
    if (m_held.size() == 1 && !isRepeat)
        watchReleases();
    // Each grab takes the focus from the application in front for a moment: that of the first
    // repeat stays until the release, unless keys are posted meanwhile.
    const std::lock_guard lock(m_yieldMutex);
    m_hasYielded &= isRepeat;
    if (!isRepeat || m_hasYielded)
        freeKeyboard();
}

void X11HotKeyRegistrar::freeKeyboard()
{
    xcb_ungrab_keyboard(m_connection.get(), XCB_CURRENT_TIME);
    xcb_flush(m_connection.get());
}

void X11HotKeyRegistrar::setHeld(quint8 key, Hold hold)
{
    m_held[key] = hold;
    const std::lock_guard lock(m_yieldMutex);
    m_isKeyHeld = true;
}

// From now on the repeats of a held key are let go of one by one.
void X11HotKeyRegistrar::yieldKeyboard()
{
    const std::lock_guard lock(m_yieldMutex);
    if (!m_isKeyHeld)
        return;
    m_hasYielded = true;
    auto *const connection = m_connection.get();
    const X11RoundTrip roundTrip(m_connection);
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    const auto done =
        replyTo(connection, xcb_get_input_focus(connection), xcb_get_input_focus_reply);
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
    const auto held = m_held.find(key);
    if (held == m_held.end())
        return;
    // The two connections may tell of a release late, when the key is down again.
    if (held->second.latestPress && isJustBefore(time, *held->second.latestPress))
        return;
    m_pressableFrom[key] = held->second.repeats ? time + 1 : time;
    m_held.erase(held);
    if (m_held.empty()) {
        m_input.removeListener(this);
        const std::lock_guard lock(m_yieldMutex);
        m_isKeyHeld = false;
    }
    std::erase_if(m_grabs, [this, key](const auto &entry) {
        const auto &[id, grab] = entry;
        if (!grab.isLeaving || grab.key != key)
            return false;
        ungrab(grab);
        return true;
    });
}

// Every change between a physical keyboard and posted keys is announced as a new map, so at each
// paste: only what the grabs are made of is worth new ones.
void X11HotKeyRegistrar::updateKeys()
{
    const auto map = X11KeyboardMap::read(m_connection);
    if (!map)
        return;
    const auto keys = keysOf(*map);
    if (keys == m_keys)
        return;
    for (const auto &[id, grab] : m_grabs)
        ungrab(grab);
    m_keys = keys;
    // A combination that is refused now stays ours in name, and is tried again at the next change.
    for (auto &[id, combination] : m_grabs) {
        combination.key = keyFor(combination.keyCode).value_or(combination.key);
        static_cast<void>(grab(combination));
    }
}

std::optional<HotKeyId> X11HotKeyRegistrar::hotKeyFor(quint8 key, quint16 state) const
{
    const auto pressed = static_cast<quint32>(state & 0xff);
    for (const auto &[id, grab] : m_grabs)
        if (grab.key == key && !grab.isLeaving && std::ranges::count(statesOf(grab), pressed) > 0)
            return id;
    return std::nullopt;
}
