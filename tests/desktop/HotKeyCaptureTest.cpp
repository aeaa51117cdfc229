// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Desktop.h"
#include "EventLoopMainQueue.h"
#include "GlobalHotKeys.h"
#include "HotKeyCaptureButton.h"
#include "WaitUntil.h"
#include "X11HotKeyRegistrar.h"
#include "X11InputConnection.h"
#include "X11KeyCharacters.h"
#include "X11ModifierMonitor.h"
#include "XkbHeader.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

using Chord = std::vector<quint8>;
constexpr quint8 k = 45;

class HotKeyCaptureTest : public testing::Test
{
protected:
    HotKeyCaptureTest()
    {
        m_button.onCapture = [this](const HotKeyConfig &hotKey) {
            m_hotKey = hotKey;
            m_hotKeys.registerHotKey();
        };
        m_button.onCapturingChange = [this](bool isCapturing) {
            isCapturing ? m_hotKeys.suspendHotKey() : m_hotKeys.resumeHotKey();
        };
        m_hotKeys.installHotKeyHandler();
        m_hotKeys.registerHotKey();
    }

    void beginCapture()
    {
        m_button.show();
        m_button.activateWindow();
        ASSERT_TRUE(waitUntil([this] { return m_button.isActiveWindow(); }));
        m_button.beginCapture();
        m_hotKey = {};
        // Answered once the server has taken the suspended combination back.
        EXPECT_EQ(m_registrar.registerHotKey(HotKeyId::Escape, 105, 0), 0); // F13
        m_registrar.unregisterHotKey(HotKeyId::Escape);
    }

    // Whether the chord works while another application has the focus.
    bool toggles(const Chord &chord)
    {
        m_button.hide();
        EXPECT_TRUE(waitUntil([] { return QGuiApplication::focusWindow() == nullptr; }));
        const int before = m_toggles;
        m_desktop.tap(chord);
        return waitUntil([&] { return m_toggles == before + 1; });
    }

    Desktop m_desktop;
    X11InputConnection m_input;
    X11HotKeyRegistrar m_registrar{m_input};
    X11ModifierMonitor m_monitor{m_input};
    EventLoopMainQueue m_queue;
    HotKeyConfig m_hotKey;
    int m_toggles = 0;
    GlobalHotKeys m_hotKeys{m_registrar,
                            &m_monitor,
                            m_queue,
                            {[this]() -> const HotKeyConfig & { return m_hotKey; },
                             [this] { ++m_toggles; },
                             [] {},
                             [](const QString &) {},
                             [] { return false; },
                             {}}};
    HotKeyCaptureButton m_button{&charactersTypedBy};
};

TEST_F(HotKeyCaptureTest, whatIsPressedBecomesTheHotKeyAtOnce)
{
    const std::tuple<QString, Chord, HotKeyConfig> rows[] = {
        {u"us"_s, {Key::leftSuper, Key::leftShift, Key::space}, {49, 0x300, u"⇧⌘Space"_s}},
        {u"us"_s, {Key::rightAlt, Key::space}, {49, 0x800, u"⌥Space"_s}},
        {u"us"_s, {Key::leftAlt, Key::space}, {49, 0x800, u"⌥Space"_s}}, // the same again
        {u"us"_s, {23}, {48, 0, u"Tab"_s}},
        {u"us"_s, {Key::f9}, {101, 0, u"F9"_s}},
        {u"us"_s, {Key::leftAlt, 87}, {83, 0x800, u"⌥1"_s}}, // keypad 1
        {u"us -option ctrl:swapcaps"_s, {Key::capsLock, k}, {40, 0x1000, u"⌃K"_s}},
        {u"fr"_s, {Key::leftShift, 10}, {18, 0x200, u"⇧&"_s}},
        {u"fr"_s, {Key::rightAlt}, {61, 0x800, u"右⌥"_s}},
        {u"dvorak"_s, {Key::leftControl, Key::s}, {1, 0x1000, u"⌃O"_s}},
        {u"us,ru -option grp:menu_toggle"_s,
         {Key::leftControl, Key::leftShift, Key::a},
         {0, 0x1200, u"⌃⇧Ф"_s}},
        {u"us"_s, {Key::leftSuper}, {55, 0x100, u"左⌘"_s}},
        {u"us"_s, {Key::rightSuper}, {54, 0x100, u"右⌘"_s}},
        {u"us"_s, {Key::rightShift}, {60, 0x200, u"右⇧"_s}},
        {u"us"_s, {Key::rightControl}, {62, 0x1000, u"右⌃"_s}},
    };
    for (const auto &[layout, chord, expected] : rows) {
        m_desktop.setLayout(layout);
        if (layout.contains(u"toggle"_s))
            m_desktop.tap({135}); // Menu
        beginCapture();
        m_desktop.tap(chord);
        EXPECT_TRUE(waitUntil([&] { return m_hotKey == expected; }))
            << m_hotKey.displayName.toStdString() << expected.displayName.toStdString();
        EXPECT_TRUE(toggles(chord)) << m_hotKey.displayName.toStdString();
    }
    m_desktop.tap({Key::f9}); // no more
    EXPECT_TRUE(toggles({Key::rightControl}));
    EXPECT_EQ(m_toggles, static_cast<int>(std::size(rows)) + 1);
}

TEST_F(HotKeyCaptureTest, refusedKeysBeepEscapeRestoresAndRepeatsAreNoPresses)
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), &xcb_disconnect);
    const quint16 bell = XCB_XKB_EVENT_TYPE_BELL_NOTIFY;
    const auto device = XCB_XKB_ID_USE_CORE_KBD;
    xcb_xkb_use_extension(connection.get(), XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    xcb_xkb_select_events(connection.get(), device, bell, 0, bell, 0, 0, nullptr);
    xcb_flush(connection.get());
    const auto hasRung = [&connection] {
        auto *const event = xcb_poll_for_event(connection.get());
        const std::unique_ptr<xcb_generic_event_t, decltype(&free)> owner(event, &free);
        return event != nullptr && event->response_type != 0;
    };
    m_desktop.setLayout(u"fr"_s);
    beginCapture();
    m_desktop.tap({Key::insert});
    EXPECT_TRUE(waitUntil(hasRung));
    m_desktop.press(Key::rightAlt);
    m_desktop.tap({k}); // a character of its own
    EXPECT_TRUE(waitUntil(hasRung));
    EXPECT_EQ(m_button.text(), u"继续按字母/空格，或松开设为 右⌥"_s);
    m_desktop.tap({Key::escape});
    m_desktop.release(Key::rightAlt);
    EXPECT_TRUE(waitUntil([this] { return m_button.text() == u"⌘⇧Space"_s; }));
    m_button.beginCapture();
    EXPECT_TRUE(toggles({Key::leftSuper, Key::leftShift, Key::space})); // in another window
    // The repeats of a key that is held on are no presses of the new hotkey.
    beginCapture();
    m_desktop.press(Key::f9);
    const auto togglesAgain = [this] { return m_toggles > 1; };
    EXPECT_FALSE(waitUntil(togglesAgain, std::chrono::milliseconds(1500)));
    m_desktop.release(Key::f9);
    EXPECT_FALSE(waitUntil(togglesAgain, std::chrono::milliseconds(20))); // by one that comes late
    EXPECT_TRUE(toggles({Key::f9}));
}

} // namespace
