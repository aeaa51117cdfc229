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

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <xcb/xcb.h>
// The header names a field "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

using namespace Qt::StringLiterals;

namespace {

// Hears the display's bell.
class Bell final
{
public:
    Bell()
    {
        xcb_xkb_use_extension(m_connection.get(), XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
        const quint16 bell = XCB_XKB_EVENT_TYPE_BELL_NOTIFY;
        xcb_xkb_select_events(
            m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, bell, 0, bell, 0, 0, nullptr);
        xcb_flush(m_connection.get());
    }
    bool hasRung()
    {
        const std::unique_ptr<xcb_generic_event_t, decltype(&free)> event(
            xcb_poll_for_event(m_connection.get()), &free);
        return event != nullptr && event->response_type != 0;
    }

private:
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection{
        xcb_connect(nullptr, nullptr), &xcb_disconnect};
};

using Chord = std::vector<quint8>;
constexpr quint8 k = 45;
const HotKeyConfig controlK{40, 0x1000, u"⌃K"_s};

class HotKeyCaptureTest : public testing::Test
{
protected:
    HotKeyCaptureTest()
    {
        m_button.onCapture = [this](const HotKeyConfig &hotKey) {
            m_hotKey = hotKey;
            m_hotKeys.registerHotKey();
            m_hasCaptured = true;
        };
        m_button.onCapturingChange = [this](bool isCapturing) {
            isCapturing ? m_hotKeys.suspendHotKey() : m_hotKeys.resumeHotKey();
        };
        m_button.setHotKey(m_hotKey);
        m_hotKeys.installHotKeyHandler();
        m_hotKeys.registerHotKey();
    }

    void beginCapture()
    {
        m_button.show();
        m_button.activateWindow();
        ASSERT_TRUE(waitUntil([this] { return m_button.isActiveWindow(); }));
        m_hasCaptured = false;
        m_button.beginCapture();
    }

    // Whether the chord works while another application has the focus.
    bool toggles(const Chord &chord)
    {
        m_button.hide();
        EXPECT_TRUE(waitUntil([] { return QGuiApplication::focusWindow() == nullptr; }));
        const int before = m_toggles;
        m_desktop.tap(chord);
        return waitUntil([&] { return m_toggles == before + 1; }, std::chrono::seconds(2));
    }

    Desktop m_desktop;
    X11InputConnection m_input;
    X11HotKeyRegistrar m_registrar{m_input};
    X11ModifierMonitor m_monitor{m_input};
    EventLoopMainQueue m_queue;
    HotKeyConfig m_hotKey;
    int m_toggles = 0;
    GlobalHotKeys m_hotKeys{m_registrar,
                            m_monitor,
                            m_queue,
                            {[this]() -> const HotKeyConfig & { return m_hotKey; },
                             [this] { ++m_toggles; },
                             [] {},
                             [](const QString &) {}}};
    bool m_hasCaptured = false;
    HotKeyCaptureButton m_button{&charactersTypedBy};
};

TEST_F(HotKeyCaptureTest, whatIsPressedBecomesTheHotKeyAtOnce)
{
    const auto swapped = u"us -option ctrl:swapcaps"_s;
    const std::tuple<QString, Chord, HotKeyConfig> rows[] = {
        {u"us"_s, {Key::leftSuper, Key::leftShift, Key::space}, {49, 0x300, u"⇧⌘Space"_s}},
        {u"us"_s, {Key::rightAlt, Key::space}, {49, 0x800, u"⌥Space"_s}},
        {u"us"_s, {Key::leftAlt, Key::space}, {49, 0x800, u"⌥Space"_s}}, // the same again
        {u"us"_s,
         {Key::leftControl, Key::leftAlt, Key::rightShift, Key::leftSuper, k},
         {40, 0x1b00, u"⌃⌥⇧⌘K"_s}},
        {u"us"_s, {23}, {48, 0, u"Tab"_s}},
        {u"us"_s, {Key::f9}, {101, 0, u"F9"_s}},
        {u"us"_s, {Key::leftAlt, 87}, {83, 0x800, u"⌥1"_s}}, // keypad 1
        {swapped, {Key::capsLock, k}, controlK},
        {u"fr"_s, {Key::leftShift, 10}, {18, 0x200, u"⇧&"_s}},
        {u"fr"_s, {Key::leftControl, 24}, {12, 0x1000, u"⌃A"_s}},
        {u"fr"_s, {Key::rightAlt}, {61, 0x800, u"右⌥"_s}},
        {u"dvorak"_s, {Key::leftControl, Key::s}, {1, 0x1000, u"⌃O"_s}},
        {u"ru"_s, {Key::leftControl, Key::leftShift, Key::a}, {0, 0x1200, u"⌃⇧Ф"_s}},
        {u"us"_s, {Key::leftSuper}, {55, 0x100, u"左⌘"_s}},
        {u"us"_s, {Key::rightSuper}, {54, 0x100, u"右⌘"_s}},
        {u"us"_s, {Key::leftShift}, {56, 0x200, u"左⇧"_s}},
        {u"us"_s, {Key::rightShift}, {60, 0x200, u"右⇧"_s}},
        {u"us"_s, {Key::leftAlt}, {58, 0x800, u"左⌥"_s}},
        {u"us"_s, {Key::rightAlt}, {61, 0x800, u"右⌥"_s}},
        {u"us"_s, {Key::leftControl}, {59, 0x1000, u"左⌃"_s}},
        {u"us"_s, {Key::rightControl}, {62, 0x1000, u"右⌃"_s}},
    };
    X11HotKeyRegistrar other(m_input);
    for (const auto &[layout, chord, expected] : rows) {
        const auto old = m_hotKey;
        m_desktop.setLayout(layout);
        beginCapture();
        m_desktop.tap(chord);
        ASSERT_TRUE(waitUntil([this] { return m_hasCaptured; })) << m_button.text().toStdString();
        EXPECT_EQ(m_hotKey, expected) << m_hotKey.displayName.toStdString();
        EXPECT_TRUE(toggles(chord)) << m_hotKey.displayName.toStdString();
        if (old.isModifierOnly() || (old.keyCode == 49 && expected.keyCode == 49))
            continue;
        EXPECT_EQ(other.registerHotKey(HotKeyId::Main, old.keyCode, old.modifiers), 0);
        other.unregisterHotKey(HotKeyId::Main);
    }
    EXPECT_EQ(m_toggles, static_cast<int>(std::size(rows)));
}

TEST_F(HotKeyCaptureTest, unnamedKeysBeepAndEscapeRestores)
{
    Bell bell;
    beginCapture();
    m_desktop.tap({Key::insert});
    EXPECT_TRUE(waitUntil([&bell] { return bell.hasRung(); }));
    EXPECT_EQ(m_button.text(), u"按下新的快捷键"_s);
    // With AltGr a key types a character of its own.
    m_desktop.setLayout(u"fr"_s);
    m_desktop.press(Key::rightAlt);
    m_desktop.tap({k});
    EXPECT_TRUE(waitUntil([&bell] { return bell.hasRung(); }));
    EXPECT_EQ(m_button.text(), u"继续按字母/空格，或松开设为 右⌥"_s);
    m_desktop.tap({Key::escape});
    m_desktop.release(Key::rightAlt);
    EXPECT_TRUE(waitUntil([this] { return m_button.text() == u"⌘⇧Space"_s; }));
    m_button.beginCapture();
    // Capturing on, but in a window that is not in front.
    EXPECT_TRUE(toggles({Key::leftSuper, Key::leftShift, Key::space}));
    EXPECT_FALSE(m_hasCaptured);
}

TEST_F(HotKeyCaptureTest, heldOnTheNewHotKeyIsNotPressedByItsRepeats)
{
    beginCapture();
    m_desktop.press(Key::leftControl);
    m_desktop.press(k);
    ASSERT_TRUE(waitUntil([this] { return m_hasCaptured; }));
    EXPECT_FALSE(waitUntil([this] { return m_toggles > 0; }, std::chrono::milliseconds(1500)));
    m_desktop.release(k);
    m_desktop.release(Key::leftControl);
    EXPECT_TRUE(toggles({Key::leftControl, k}));
}

} // namespace
