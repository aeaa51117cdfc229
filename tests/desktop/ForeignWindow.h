// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "WaitUntil.h"
#include "X11Reply.h"
#include "X11RoundTrip.h"

#include <gtest/gtest.h>

#include <xcb/xcb.h>

// A window of another application with the focus, which notes what reaches it and does nothing.
class ForeignWindow final
{
public:
    explicit ForeignWindow(QByteArray windowClass)
    {
        auto *const server = m_connection.get();
        const quint32 wanted[] = {XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE};
        const quint32 root = m_connection.root();
        xcb_create_window(
            server, 0, m_window, root, 0, 0, 99, 99, 0, 0, 0, XCB_CW_EVENT_MASK, wanted);
        windowClass = windowClass + '\0' + windowClass + '\0';
        xcb_change_property(server,
                            XCB_PROP_MODE_REPLACE,
                            m_window,
                            XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING,
                            8,
                            quint32(windowClass.size()),
                            windowClass.constData());
        xcb_map_window(server, m_window);
        EXPECT_TRUE(waitUntil([this] { return takeFocus(); }));
        EXPECT_TRUE(waitUntil([this] { return focusChanges > 0; }));
        focusChanges = 0;
    }

    // Whether the window has the focus, which is asked for.
    [[nodiscard]] bool takeFocus()
    {
        auto *const server = m_connection.get();
        const X11RoundTrip roundTrip(m_connection);
        xcb_set_input_focus(server, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
        const auto focus = replyTo(server, xcb_get_input_focus(server), xcb_get_input_focus_reply);
        return focus && focus->focus == m_window;
    }
    [[nodiscard]] quint32 id() const { return m_window; }

    std::vector<quint8> presses; // X key codes, repeats included
    int focusChanges = 0;

private:
    void handle(const void *message)
    {
        const auto *const key = static_cast<const xcb_key_press_event_t *>(message);
        if (key->response_type == XCB_KEY_PRESS)
            presses.push_back(key->detail);
        else if (key->response_type == XCB_FOCUS_IN || key->response_type == XCB_FOCUS_OUT)
            ++focusChanges;
    }

    X11Connection m_connection{[this](const void *message) { handle(message); }};
    const quint32 m_window = xcb_generate_id(m_connection.get());
};
