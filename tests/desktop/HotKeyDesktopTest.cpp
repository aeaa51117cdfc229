// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Desktop.h"
#include "ForeignWindow.h"
#include "Process.h"
#include "VirtualKey.h"
#include "WaitUntil.h"
#include "X11HotKeyRegistrar.h"
#include "X11InputConnection.h"
#include "X11ModifierMonitor.h"
#include "X11SyntheticKeyboard.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

#include <gmock/gmock.h>

#include <xcb/xinput.h>

using namespace Key;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using Chord = std::vector<quint8>;

namespace {

// A window with the focus that notes the keys that reach it.
class KeyRecorder final : public QWidget
{
public:
    KeyRecorder()
    {
        resize(200, 100);
        show();
        // A window manager that is busy can miss what is asked before the window is there.
        EXPECT_TRUE(waitUntil([this] {
            activateWindow();
            return isActiveWindow();
        }));
    }
    std::vector<quint32> presses; // X key codes, repeats included

protected:
    void keyPressEvent(QKeyEvent *event) override { presses.push_back(event->nativeScanCode()); }
};

class HotKeyDesktopTest : public testing::Test
{
protected:
    HotKeyDesktopTest()
    {
        m_registrar.setHandler([this](HotKeyId id) { m_pressed.push_back(id); });
    }

    // What was pressed since the last call, once everything typed so far has been handled: the
    // hotkey that is tapped last marks the end.
    std::vector<HotKeyId> pressed()
    {
        EXPECT_EQ(m_registrar.registerHotKey(HotKeyId::Escape, 126, 0), 0); // the Up key
        m_desktop.tap({up});
        EXPECT_TRUE(waitUntil(
            [this] { return !m_pressed.empty() && m_pressed.back() == HotKeyId::Escape; }));
        m_registrar.unregisterHotKey(HotKeyId::Escape);
        m_pressed.pop_back();
        return std::exchange(m_pressed, {});
    }

    int registerMain(quint32 keyCode, quint32 modifiers)
    {
        return m_registrar.registerHotKey(HotKeyId::Main, keyCode, modifiers);
    }

    Desktop m_desktop;
    X11InputConnection m_input;
    X11HotKeyRegistrar m_registrar{m_input};
    std::vector<HotKeyId> m_pressed;
};

TEST_F(HotKeyDesktopTest, everyStoredFormIsReportedOnceAndOnlyExactly)
{
    // Code and modifiers, the keys, and keys that are not the hotkey.
    const std::tuple<quint32, quint32, Chord, Chord> rows[] = {
        {49, 0x300, {leftSuper, leftShift, space}, {leftSuper, space}},
        {49, 0x300, {rightShift, rightSuper, space}, {space}},
        {0, 0x1800, {leftControl, leftAlt, a}, {leftControl, a}},
        {0, 0x1b00, {leftControl, leftAlt, leftShift, rightSuper, a}, {leftAlt, a}},
        {101, 0, {f9}, {leftShift, f9}},
        {105, 0x100, {leftSuper, 191}, {191}}, // F13
        {82, 0x800, {rightAlt, 90}, {90}}, // keypad 0
        {10, 0x1000, {rightControl, 94}, {94}}, // the extra key of ISO boards
        {93, 0, {132}, {leftAlt, 132}}, // the yen key of JIS boards
        {355, 0x200, {leftShift, 107}, {107}}, // Print
    };
    for (const auto &[keyCode, modifiers, chord, other] : rows) {
        ASSERT_EQ(registerMain(keyCode, modifiers), 0);
        for (const auto &keys : {chord, other, chord})
            m_desktop.tap(keys);
        EXPECT_THAT(pressed(), ElementsAre(HotKeyId::Main, HotKeyId::Main)) << keyCode;
    }
    m_registrar.unregisterHotKey(HotKeyId::Main);
    m_desktop.tap({leftShift, 107});
    EXPECT_THAT(pressed(), testing::IsEmpty());
}

TEST_F(HotKeyDesktopTest, lockKeysDoNotMatter)
{
    // Without a modifier of its own Scroll Lock cannot be in the way.
    ASSERT_EQ(runCommand(u"xmodmap -e 'add mod3 = Scroll_Lock'"_s).exitCode, 0);
    ASSERT_EQ(registerMain(49, 0x300), 0);
    // Every set of locks, each one key apart from the set before; none in the end.
    for (const auto lock :
         {capsLock, numLock, capsLock, scrollLock, capsLock, numLock, capsLock, scrollLock}) {
        m_desktop.tap({lock});
        m_desktop.tap({leftSuper, leftShift, space});
        EXPECT_THAT(pressed(), ElementsAre(HotKeyId::Main));
    }
}

TEST_F(HotKeyDesktopTest, mappingChangesLeaveHotKeysWorking)
{
    ASSERT_EQ(registerMain(49, 0x1300), 0);
    const Chord usual{leftControl, leftSuper, leftShift, space};
    const std::pair<QString, Chord> rows[] = {
        {u"setxkbmap fr"_s, usual},
        {u"setxkbmap dvorak"_s, usual},
        {u"setxkbmap ru"_s, usual},
        {u"setxkbmap us -option ctrl:swapcaps"_s, {capsLock, leftSuper, leftShift, space}},
        {u"setxkbmap us -option '' -option altwin:swap_alt_win"_s,
         {leftControl, leftAlt, leftShift, space}},
        {u"setxkbmap us -option ''"_s, usual},
        // Super on another modifier bit, then each of its keys on one of its own.
        {u"xmodmap -e 'clear mod3' -e 'clear mod4' -e 'add mod3 = Super_L'"_s, usual},
        {u"xmodmap -e 'add mod4 = Super_R'"_s, {leftControl, rightSuper, leftShift, space}},
        {u"true"_s, usual}};
    for (const auto &[change, chord] : rows) {
        ASSERT_EQ(runCommand(change).exitCode, 0);
        // A change reaches us and the keys by two ways.
        EXPECT_TRUE(waitUntil([&, &keys = chord] {
            m_desktop.tap(keys);
            return !pressed().empty();
        })) << change.toStdString();
    }
}

TEST_F(HotKeyDesktopTest, heldKeyIsOnePressAndTypesNothing)
{
    ForeignWindow window("editor");
    ASSERT_EQ(registerMain(101, 0), 0);
    // In the middle of another key's repeats.
    m_desktop.press(a);
    ASSERT_TRUE(waitUntil([&] { return window.presses.size() > 3; }));
    m_desktop.press(f9);
    ASSERT_TRUE(waitUntil([&] { return !m_pressed.empty(); }));
    // The keyboard is free while the hotkey is held: what is posted reaches the application.
    window.presses.clear();
    X11SyntheticKeyboard keyboard(m_input);
    EXPECT_TRUE(keyboard.post(PasteChord::ShiftInsert));
    ASSERT_TRUE(
        waitUntil([&] { return !window.presses.empty() && window.presses.back() == insert; }));
    m_desktop.release(f9);
    m_desktop.release(a);
    window.focusChanges = 0;
    m_desktop.press(f9);
    EXPECT_FALSE(waitUntil([&] { return m_pressed.size() > 2; }, std::chrono::milliseconds(1500)));
    // A grab and its end at the press, and once more from the first repeat to the release.
    EXPECT_LE(window.focusChanges, 4);
    window.presses.clear();
    EXPECT_TRUE(keyboard.post(PasteChord::ShiftInsert));
    ASSERT_TRUE(
        waitUntil([&] { return !window.presses.empty() && window.presses.back() == insert; }));
    EXPECT_FALSE(waitUntil([&] { return m_pressed.size() > 2; }, std::chrono::milliseconds(300)));
    m_desktop.release(f9);
    EXPECT_FALSE(waitUntil([&] { return m_pressed.size() > 2; }, std::chrono::milliseconds(100)));
    EXPECT_EQ(std::ranges::count(window.presses, f9), 0);
    m_pressed.clear();
    for (int i = 0; i < 50; ++i)
        m_desktop.tap({f9});
    EXPECT_EQ(pressed().size(), 50U);
}

TEST_F(HotKeyDesktopTest, escapeHeldAfterCancelDoesNotSpill)
{
    KeyRecorder window;
    ASSERT_EQ(m_registrar.registerHotKey(HotKeyId::Escape, 53, 0), 0);
    m_desktop.press(escape);
    ASSERT_TRUE(waitUntil([&] { return !m_pressed.empty(); }));
    m_registrar.unregisterHotKey(HotKeyId::Escape);
    // Long enough for its repeats, which begin after 660 ms by default.
    EXPECT_FALSE(
        waitUntil([&] { return !window.presses.empty(); }, std::chrono::milliseconds(1500)));
    // A new recording while it is still held.
    EXPECT_EQ(m_registrar.registerHotKey(HotKeyId::Escape, 53, 0), 0);
    EXPECT_FALSE(waitUntil([&] { return m_pressed.size() > 1; }, std::chrono::milliseconds(200)));
    m_desktop.release(escape);
    EXPECT_FALSE(waitUntil([&] { return m_pressed.size() > 1; }, std::chrono::milliseconds(100)));
    m_desktop.tap({escape});
    EXPECT_TRUE(waitUntil([&] { return m_pressed.size() == 2; }));
    m_registrar.unregisterHotKey(HotKeyId::Escape);
    // Escape belongs to the applications again.
    EXPECT_TRUE(waitUntil([&] {
        m_desktop.tap({escape});
        return !window.presses.empty();
    }));
    EXPECT_EQ(window.presses.front(), escape);
    EXPECT_EQ(m_pressed.size(), 2U);
}

TEST_F(HotKeyDesktopTest, escapeIsTheKeyThatTypesIt)
{
    ASSERT_EQ(m_registrar.registerHotKey(HotKeyId::Escape, VirtualKey::escape, 0), 0);
    const auto cancels = [this](quint8 key) {
        m_pressed.clear();
        m_desktop.tap({key});
        return waitUntil([this] { return !m_pressed.empty(); }, std::chrono::milliseconds(300));
    };
    EXPECT_TRUE(cancels(escape));
    m_desktop.setLayout(u"us -option caps:swapescape"_s);
    EXPECT_TRUE(waitUntil([&] { return cancels(capsLock); }));
    EXPECT_FALSE(cancels(escape));
    m_desktop.tap({escape}); // Caps Lock off again
    m_registrar.unregisterHotKey(HotKeyId::Escape);
    ASSERT_EQ(m_registrar.registerHotKey(HotKeyId::Escape, VirtualKey::escape, 0), 0);
    EXPECT_TRUE(cancels(capsLock));
}

// As desktops grab their own keys.
TEST_F(HotKeyDesktopTest, aKeyHeldByTheInputExtensionIsRefused)
{
    const X11Connection other([](const void *) {});
    auto *const server = other.get();
    const quint32 states[] = {XCB_MOD_MASK_SHIFT};
    EXPECT_TRUE(replyTo(
        server, xcb_input_xi_query_version(server, 2, 2), xcb_input_xi_query_version_reply));
    const auto request = xcb_input_xi_passive_grab_device(
        server, 0, other.root(), 0, f9, 1, 1, 0, 1, 1, 1, 0, nullptr, states);
    EXPECT_TRUE(replyTo(server, request, xcb_input_xi_passive_grab_device_reply));
    EXPECT_EQ(registerMain(101, 0x200), 10);
    EXPECT_EQ(registerMain(101, 0), 0);
    xcb_input_xi_passive_ungrab_device(server, other.root(), f9, 1, 1, 1, states);
    static_cast<void>(replyTo(server, xcb_get_input_focus(server), xcb_get_input_focus_reply));
    EXPECT_EQ(registerMain(101, 0x200), 0);
    m_desktop.tap({leftShift, f9});
    EXPECT_THAT(pressed(), ElementsAre(HotKeyId::Main));
}

TEST_F(HotKeyDesktopTest, refusalsAreReportedAndLeaveNothingBehind)
{
    X11HotKeyRegistrar other(m_input);
    int others = 0;
    other.setHandler([&others](HotKeyId) { ++others; });
    ASSERT_EQ(other.registerHotKey(HotKeyId::Main, 49, 0x300), 0);
    EXPECT_EQ(registerMain(49, 0x300), 10);
    EXPECT_EQ(registerMain(63, 0), 2); // the Function key
    EXPECT_EQ(registerMain(1000, 0), 2);
    m_desktop.tap({leftSuper, leftShift, space});
    EXPECT_TRUE(waitUntil([&] { return others == 1; }));
    EXPECT_THAT(pressed(), testing::IsEmpty());
    other.unregisterHotKey(HotKeyId::Main);
    EXPECT_EQ(registerMain(49, 0x300), 0);
    EXPECT_EQ(m_registrar.registerHotKey(HotKeyId::Escape, 49, 0x300), 10);
}

// Everything of ours on one display, which need not be there.
struct Backends
{
    X11InputConnection input;
    X11HotKeyRegistrar registrar{input};
    X11ModifierMonitor monitor{input};
    X11SyntheticKeyboard keyboard{input};

    bool isDead()
    {
        registrar.unregisterHotKey(HotKeyId::Main);
        return registrar.registerHotKey(HotKeyId::Main, 49, 0x300) == -1
            && !monitor.start([](const KeyEvent &) {}) && !keyboard.isTrusted()
            && !keyboard.post(PasteChord::ControlV);
    }
};

TEST_F(HotKeyDesktopTest, withoutServerNothingWorksAndAServerThatDiesLeavesNoBusyLoop)
{
    BackgroundProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s});
    ASSERT_TRUE(waitUntil([&] { return server.canReadLine(); }));
    const auto ours = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":987");
    EXPECT_TRUE(Backends().isDead());
    qputenv("DISPLAY", ':' + server.readLine().trimmed());
    Backends backends;
    qputenv("DISPLAY", ours);
    ASSERT_EQ(backends.registrar.registerHotKey(HotKeyId::Main, 49, 0x300), 0);
    ASSERT_TRUE(backends.monitor.start([](const KeyEvent &) {}));
    server.kill();
    ASSERT_TRUE(server.waitForFinished());
    EXPECT_TRUE(waitUntil([&] { return backends.isDead(); }));
    // Each turn of the event loop that something wakes ends one of these waits.
    int wakeUps = 0;
    for (const QDeadlineTimer end(300); !end.hasExpired(); ++wakeUps) {
        QTimer::singleShot(100, [] {});
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_LT(wakeUps, 50);
}

TEST_F(HotKeyDesktopTest, modifierMonitorTellsSidesAndIgnoresOurKeys)
{
    X11ModifierMonitor monitor(m_input);
    X11SyntheticKeyboard keyboard(m_input);
    std::vector<KeyEvent> events;
    ASSERT_TRUE(monitor.start([&events](const KeyEvent &event) { events.push_back(event); }));
    const std::tuple<quint8, quint32, quint32> rows[] = {{leftSuper, 55, ModifierFlag::command},
                                                         {rightSuper, 54, ModifierFlag::command},
                                                         {leftShift, 56, ModifierFlag::shift},
                                                         {rightShift, 60, ModifierFlag::shift},
                                                         {leftAlt, 58, ModifierFlag::option},
                                                         {rightAlt, 61, ModifierFlag::option},
                                                         {leftControl, 59, ModifierFlag::control},
                                                         {rightControl, 62, ModifierFlag::control}};
    for (const auto &[key, keyCode, flag] : rows) {
        m_desktop.press(key);
        m_desktop.tap({a});
        // A paste with the key held lifts it and puts it down again.
        EXPECT_TRUE(keyboard.post(PasteChord::ControlV));
        m_desktop.release(key);
        EXPECT_TRUE(waitUntil([&] { return events.size() >= 2; }));
        EXPECT_THAT(std::exchange(events, {}),
                    ElementsAre(KeyEvent{keyCode, flag, {}}, KeyEvent{keyCode, 0, {}}));
    }
    m_desktop.tap({leftShift, rightShift});
    EXPECT_TRUE(waitUntil([&] { return events.size() >= 4; }));
    EXPECT_EQ(events.at(2), (KeyEvent{60, ModifierFlag::shift, {}}));
    events.clear();
    {
        m_desktop.press(leftControl);
        EXPECT_TRUE(waitUntil([&] { return events.size() == 1; }));
        const KeyRecorder ourWindow;
        // The release of what was pressed elsewhere is told.
        m_desktop.release(leftControl);
        EXPECT_TRUE(waitUntil([&] { return events.size() == 2; }));
        events.clear();
        m_desktop.tap({leftShift});
    }
    monitor.stop();
    m_desktop.tap({leftAlt});
    EXPECT_THAT(pressed(), testing::IsEmpty());
    EXPECT_THAT(events, testing::IsEmpty());
}

} // namespace
