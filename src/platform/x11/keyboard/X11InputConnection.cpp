// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11InputConnection.h"

#include "X11PhysicalKeys.h"
#include "X11Reply.h"
#include "X11RoundTrip.h"
#include "XkbHeader.h"

#include <algorithm>

#include <xcb/xcb.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

namespace {

// The opcode of the input extension, version 2.2 or later; 0 when the display has none.
int inputOpcode(xcb_connection_t *connection)
{
    const auto *const extension = xcb_get_extension_data(connection, &xcb_input_id);
    if (extension == nullptr || !extension->present)
        return 0;
    const auto version = replyTo(
        connection, xcb_input_xi_query_version(connection, 2, 2), xcb_input_xi_query_version_reply);
    return version && version->major_version >= 2 ? extension->major_opcode : 0;
}

bool hasExtension(xcb_connection_t *connection, xcb_extension_t *id)
{
    const auto *const extension = xcb_get_extension_data(connection, id);
    return extension != nullptr && extension->present;
}

} // namespace

X11InputConnection::X11InputConnection()
    : m_connection([this](const void *event) { handleEvent(event); })
{
    auto *const connection = m_connection.get();
    if (!m_connection.isUsable())
        return;
    const X11RoundTrip roundTrip(m_connection);
    m_inputOpcode = inputOpcode(connection);
    const auto keyboardMaps =
        replyTo(connection,
                xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
                xcb_xkb_use_extension_reply);
    m_canPost = hasExtension(connection, &xcb_test_id) && keyboardMaps && keyboardMaps->supported;
}

X11InputConnection::~X11InputConnection() = default;

bool X11InputConnection::canWatch() const
{
    return m_inputOpcode != 0 && m_connection.isUsable();
}

bool X11InputConnection::canPost() const
{
    return m_canPost && m_connection.isUsable();
}

void X11InputConnection::addListener(const void *owner, Listener listener)
{
    const X11RoundTrip roundTrip(m_connection);
    const std::lock_guard lock(m_mutex);
    m_listeners[owner] = std::move(listener);
    updateWatch();
}

void X11InputConnection::removeListener(const void *owner)
{
    const X11RoundTrip roundTrip(m_connection);
    const std::lock_guard lock(m_mutex);
    m_listeners.erase(owner);
    updateWatch();
}

void X11InputConnection::addKeyboardHolder(const void *owner, std::function<void()> yield)
{
    const std::lock_guard lock(m_mutex);
    m_keyboardHolders[owner] = std::move(yield);
}

void X11InputConnection::removeKeyboardHolder(const void *owner)
{
    const std::lock_guard lock(m_mutex);
    m_keyboardHolders.erase(owner);
}

void X11InputConnection::yieldKeyboard()
{
    std::map<const void *, std::function<void()>> holders;
    {
        const std::lock_guard lock(m_mutex);
        holders = m_keyboardHolders;
    }
    for (const auto &[owner, yield] : holders)
        yield();
}

void X11InputConnection::catchUp()
{
    {
        const X11RoundTrip roundTrip(m_connection);
        const auto done = replyTo(
            m_connection.get(), xcb_get_input_focus(m_connection.get()), xcb_get_input_focus_reply);
    }
    m_connection.drain();
}

std::vector<quint8> X11InputConnection::keysDown()
{
    auto *const connection = m_connection.get();
    const X11RoundTrip roundTrip(m_connection);
    const auto keymap = replyTo(connection, xcb_query_keymap(connection), xcb_query_keymap_reply);
    std::vector<quint8> down;
    for (unsigned key = 0; keymap && key < 256; ++key)
        if ((unsigned{keymap->keys[key / 8]} >> (key % 8) & 1U) != 0)
            down.push_back(static_cast<quint8>(key));
    return down;
}

void X11InputConnection::post(const std::vector<KeyStroke> &strokes)
{
    if (strokes.empty())
        return;
    const X11RoundTrip roundTrip(m_connection);
    xcb_get_input_focus_cookie_t barrier{};
    {
        // Held until every request is noted: their events may be read on the other thread at once.
        const std::lock_guard lock(m_mutex);
        for (const auto &stroke : strokes)
            postLocked(stroke);
        barrier = xcb_get_input_focus(m_connection.get());
    }
    const auto done = replyTo(m_connection.get(), barrier, xcb_get_input_focus_reply);
}

// The server does not connect a posted key with the finger on the same key: the finger's release is
// watched for before the key goes down, and looked for again afterwards.
void X11InputConnection::pressForFingers(const std::vector<quint8> &keys)
{
    if (keys.empty() || !canWatch())
        return;
    const auto setPressed = [this](const std::set<quint8> &pressed) {
        const X11RoundTrip roundTrip(m_connection);
        const std::lock_guard lock(m_mutex);
        m_pressedForFingers = pressed;
        updateWatch();
    };
    const auto amongFingers = [this](std::set<quint8> wanted) {
        const auto fingers = physicalKeysDown(m_connection);
        std::erase_if(wanted, [&fingers](quint8 key) { return !fingers.contains(key); });
        return wanted;
    };
    setPressed({keys.begin(), keys.end()});
    const auto held = amongFingers({keys.begin(), keys.end()});
    post(strokesOf(held, true));
    const auto stillHeld = amongFingers(held);
    setPressed(stillHeld);
    std::vector<quint8> gone;
    std::ranges::set_difference(held, stillHeld, std::back_inserter(gone));
    post(strokesOf(gone, false));
}

void X11InputConnection::postLocked(const KeyStroke &stroke)
{
    const quint8 type = stroke.isPress ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
    const auto request = xcb_test_fake_input(
        m_connection.get(), type, stroke.key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    if (m_isWatching)
        m_posted.push_back({stroke, request.sequence});
}

// Keys are reported only while somebody needs them: nothing wakes up at what the user types.
void X11InputConnection::updateWatch()
{
    const bool isNeeded = !m_listeners.empty() || !m_pressedForFingers.empty();
    if (isNeeded == m_isWatching || !canWatch())
        return;
    m_isWatching = isNeeded;
    m_posted.clear();
    struct
    {
        xcb_input_event_mask_t header;
        quint32 mask;
    } selection{};
    selection.header.deviceid = XCB_INPUT_DEVICE_ALL_MASTER;
    selection.header.mask_len = 1;
    if (isNeeded)
        selection.mask =
            XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    const auto request = xcb_input_xi_select_events_checked(
        m_connection.get(), m_connection.root(), 1, &selection.header);
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(m_connection.get(), request));
}

void X11InputConnection::handleEvent(const void *event)
{
    if ((static_cast<const xcb_generic_event_t *>(event)->response_type & 0x7f) != XCB_GE_GENERIC)
        return;
    const auto *const key = static_cast<const xcb_input_raw_key_press_event_t *>(event);
    const bool isPress = key->event_type == XCB_INPUT_RAW_KEY_PRESS;
    if (key->extension != m_inputOpcode
        || (!isPress && key->event_type != XCB_INPUT_RAW_KEY_RELEASE))
        return;
    const KeyStroke stroke{static_cast<quint8>(key->detail), isPress};
    std::map<const void *, Listener> listeners;
    {
        const std::lock_guard lock(m_mutex);
        if (takePosted(stroke, key->full_sequence))
            return;
        followFingers(stroke);
        listeners = m_listeners;
    }
    for (const auto &[owner, listener] : listeners)
        listener(stroke, key->time);
}

void X11InputConnection::followFingers(const KeyStroke &stroke)
{
    if (stroke.isPress || m_pressedForFingers.erase(stroke.key) == 0)
        return;
    postLocked(stroke);
    xcb_flush(m_connection.get());
    updateWatch();
}

bool X11InputConnection::takePosted(const KeyStroke &stroke, quint32 sequence)
{
    // Events come in the order of the requests: what has an older number raised no event.
    std::erase_if(m_posted, [sequence](const Posted &posted) {
        return static_cast<qint32>(posted.sequence - sequence) < 0;
    });
    const auto own = std::ranges::find_if(m_posted, [&](const Posted &posted) {
        return posted.sequence == sequence && posted.stroke == stroke;
    });
    if (own == m_posted.end())
        return false;
    m_posted.erase(own);
    return true;
}
