// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Desktop.h"
#include "WaitUntil.h"
#include "X11HotKeyRegistrar.h"
#include "X11InputConnection.h"

#include <gtest/gtest.h>

namespace {

class HotKeyDesktopTest : public testing::Test
{
protected:
    HotKeyDesktopTest()
    {
        m_registrar.setHandler([this](HotKeyId id) { m_pressed.push_back(id); });
    }

    // What was pressed since the last call, once at least `count` presses have come.
    std::vector<HotKeyId> pressed(std::size_t count)
    {
        EXPECT_TRUE(waitUntil([&] { return m_pressed.size() >= count; }));
        return std::exchange(m_pressed, {});
    }

    Desktop m_desktop;
    X11InputConnection m_input;
    X11HotKeyRegistrar m_registrar{m_input};
    std::vector<HotKeyId> m_pressed;
};

TEST_F(HotKeyDesktopTest, pressIsReported)
{
    ASSERT_EQ(m_registrar.registerHotKey(HotKeyId::Main, 49, 0x300), 0);
    m_desktop.tap({Key::leftSuper, Key::leftShift, Key::space});
    EXPECT_EQ(pressed(1), std::vector{HotKeyId::Main});
}

} // namespace
