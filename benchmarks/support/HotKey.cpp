// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HotKey.h"

#include <stdexcept>

#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace {

constexpr unsigned char superCode = 133;
constexpr unsigned char shiftCode = 50;
constexpr unsigned char spaceCode = 65;

} // namespace

HotKey::HotKey()
    : m_connection(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_connection))
        throw std::runtime_error("there is no display");
}

HotKey::~HotKey()
{
    xcb_disconnect(m_connection);
}

Instant HotKey::press()
{
    fake(true, superCode);
    fake(true, shiftCode);
    xcb_flush(m_connection);
    const auto pressedAt = Clock::now();
    fake(true, spaceCode);
    xcb_flush(m_connection);
    fake(false, spaceCode);
    fake(false, shiftCode);
    fake(false, superCode);
    xcb_flush(m_connection);
    return pressedAt;
}

void HotKey::fake(bool isPress, unsigned char keyCode)
{
    xcb_test_fake_input(
        m_connection, isPress ? XCB_KEY_PRESS : XCB_KEY_RELEASE, keyCode, 0, XCB_NONE, 0, 0, 0);
}
