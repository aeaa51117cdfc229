// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11FocusReturn.h"

#include "X11ActiveWindow.h"
#include "X11Reply.h"
#include "X11RoundTrip.h"
#include "X11Selections.h"

#include <chrono>
#include <thread>

#include <xcb/xcb.h>

using namespace std::chrono_literals;

namespace {

constexpr auto longestFocusWait = 1000ms;
constexpr auto focusWaitStep = 4ms;

// What all windows of one client have in common.
quint32 clientOf(xcb_connection_t *connection, quint32 window)
{
    return window & ~xcb_get_setup(connection)->resource_id_mask;
}

} // namespace

X11FocusReturn::X11FocusReturn(X11Reach reach)
    : m_reach(reach)
    , m_connection([this](const void *event) { handleEvent(event); })
{
    auto *const application = X11Selections::applicationConnection();
    if (!m_connection.isUsable() || application == nullptr)
        return;
    m_ownClient = xcb_get_setup(application)->resource_id_base;
    const quint32 wanted[] = {XCB_EVENT_MASK_PROPERTY_CHANGE};
    {
        const X11RoundTrip roundTrip(m_connection);
        m_activeWindowAtom = X11Selections::atom(m_connection.get(), "_NET_ACTIVE_WINDOW");
        m_changeStateAtom = X11Selections::atom(m_connection.get(), "WM_CHANGE_STATE");
        xcb_change_window_attributes(
            m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, wanted);
    }
    noteActiveWindow();
}

X11FocusReturn::~X11FocusReturn() = default;

bool X11FocusReturn::returnFocus()
{
    if (const auto focused = focusedWindow(); clientOf(m_connection.get(), focused) != m_ownClient)
        return focused > XCB_INPUT_FOCUS_POINTER_ROOT || m_reach == X11Reach::XWayland;
    const quint32 previous = m_previous;
    if (previous == XCB_NONE && m_reach == X11Reach::XWayland) {
        putAway(activeWindow(m_connection));
        return waitForFocus([this](quint32 client) { return client != m_ownClient; });
    }
    if (!isThere(previous))
        return false;
    activate(previous);
    return waitForFocus([wanted = clientOf(m_connection.get(), previous)](quint32 client) {
        return client == wanted;
    });
}

bool X11FocusReturn::waitForFocus(const std::function<bool(quint32 client)> &isRight)
{
    const auto deadline = std::chrono::steady_clock::now() + longestFocusWait;
    while (!isRight(clientOf(m_connection.get(), focusedWindow()))) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(focusWaitStep);
    }
    return true;
}

void X11FocusReturn::handleEvent(const void *event)
{
    const auto *const change = static_cast<const xcb_property_notify_event_t *>(event);
    if ((change->response_type & 0x7f) != XCB_PROPERTY_NOTIFY || change->atom != m_activeWindowAtom)
        return;
    noteActiveWindow();
}

void X11FocusReturn::noteActiveWindow()
{
    auto *const server = m_connection.get();
    const auto active = activeWindow(m_connection);
    const bool isKnown = active != XCB_NONE || m_reach == X11Reach::XWayland;
    if (isKnown && clientOf(server, active) != m_ownClient)
        m_previous = active;
}

void X11FocusReturn::activate(quint32 window)
{
    tellWindowManager(window, m_activeWindowAtom, 2); // on behalf of the user, as a pager asks
}

void X11FocusReturn::putAway(quint32 window)
{
    tellWindowManager(window, m_changeStateAtom, 3); // to iconic
}

void X11FocusReturn::tellWindowManager(quint32 window, quint32 message, quint32 value)
{
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = window;
    request.type = message;
    request.data.data32[0] = value;
    const auto receivers =
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_send_event(m_connection.get(),
                   0,
                   m_connection.root(),
                   receivers,
                   reinterpret_cast<const char *>(&request));
    xcb_flush(m_connection.get());
}

quint32 X11FocusReturn::focusedWindow()
{
    auto *const server = m_connection.get();
    const X11RoundTrip roundTrip(m_connection);
    const auto focus = replyTo(server, xcb_get_input_focus(server), xcb_get_input_focus_reply);
    return focus ? focus->focus : quint32{XCB_NONE};
}

bool X11FocusReturn::isThere(quint32 window)
{
    auto *const server = m_connection.get();
    const X11RoundTrip roundTrip(m_connection);
    return window != XCB_NONE
        && replyTo(
               server, xcb_get_window_attributes(server, window), xcb_get_window_attributes_reply);
}
