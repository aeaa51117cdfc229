// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Desktop.h"
#include "Process.h"
#include "WaitUntil.h"
#include "X11HotKeyRegistrar.h"
#include "X11InputConnection.h"
#include "X11ModifierMonitor.h"
#include "X11SyntheticKeyboard.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QProcess>
#include <QTimer>
#include <QWidget>

#include <array>
#include <bit>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

// A window with the focus that notes the keys that reach it.
class KeyRecorder final : public QWidget
{
public:
    KeyRecorder()
    {
        resize(200, 100);
        show();
        activateWindow();
        EXPECT_TRUE(waitUntil([this] { return isActiveWindow(); }));
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
        m_desktop.tap({Key::up});
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
    using Chord = std::vector<quint8>;
    // Code and modifiers, the keys, and keys that are not the hotkey.
    const std::tuple<quint32, quint32, Chord, Chord> rows[] = {
        {49, 0x300, {Key::leftSuper, Key::leftShift, Key::space}, {Key::leftSuper, Key::space}},
        {49, 0x300, {Key::rightShift, Key::rightSuper, Key::space}, {Key::space}},
        {0, 0x1800, {Key::leftControl, Key::leftAlt, Key::a}, {Key::leftControl, Key::a}},
        {0,
         0x1b00,
         {Key::leftControl, Key::leftAlt, Key::leftShift, Key::rightSuper, Key::a},
         {Key::leftAlt, Key::a}},
        {101, 0, {Key::f9}, {Key::leftShift, Key::f9}},
        {105, 0x100, {Key::leftSuper, 191}, {191}}, // F13
        {82, 0x800, {Key::rightAlt, 90}, {90}}, // keypad 0
        {10, 0x1000, {Key::rightControl, 94}, {94}}, // the extra key of ISO boards
        {93, 0, {132}, {Key::leftAlt, 132}}, // the yen key of JIS boards
        {355, 0x200, {Key::leftShift, 107}, {107}}, // Print
    };
    for (const auto &[keyCode, modifiers, chord, other] : rows) {
        ASSERT_EQ(registerMain(keyCode, modifiers), 0);
        for (const auto &keys : {chord, other, chord})
            m_desktop.tap(keys);
        EXPECT_THAT(pressed(), ElementsAre(HotKeyId::Main, HotKeyId::Main)) << keyCode;
    }
    m_registrar.unregisterHotKey(HotKeyId::Main);
    m_desktop.tap({Key::leftShift, 107});
    EXPECT_THAT(pressed(), testing::IsEmpty());
}

TEST_F(HotKeyDesktopTest, lockKeysDoNotMatter)
{
    // Without a modifier of its own Scroll Lock cannot be in the way.
    ASSERT_EQ(runProcess(u"xmodmap"_s, {u"-e"_s, u"add mod3 = Scroll_Lock"_s}).exitCode, 0);
    ASSERT_EQ(registerMain(49, 0x300), 0);
    // Every set of locks, each one key apart from the set before.
    const std::array locks{Key::capsLock, Key::numLock, Key::scrollLock};
    for (unsigned i = 1; i < 8; ++i) {
        m_desktop.tap({locks.at(static_cast<size_t>(std::countr_zero(i)))});
        m_desktop.tap({Key::leftSuper, Key::leftShift, Key::space});
        EXPECT_THAT(pressed(), ElementsAre(HotKeyId::Main));
    }
    m_desktop.tap({Key::scrollLock});
}

TEST_F(HotKeyDesktopTest, mappingChangesLeaveHotKeysWorking)
{
    ASSERT_EQ(registerMain(49, 0x1300), 0);
    // Waits until the next presses are reported: a change reaches us and the keys by two ways.
    const auto isReported = [this](const std::vector<quint8> &chord) {
        return waitUntil([&] {
            m_desktop.tap(chord);
            return waitUntil([&] { return !m_pressed.empty(); }, std::chrono::milliseconds(100));
        });
    };
    using Chord = std::vector<quint8>;
    const Chord usual{Key::leftControl, Key::leftSuper, Key::leftShift, Key::space};
    const std::pair<QString, Chord> rows[] = {
        {u"fr"_s, usual},
        {u"dvorak"_s, usual},
        {u"ru"_s, usual},
        {u"us -option ctrl:swapcaps"_s,
         {Key::capsLock, Key::leftSuper, Key::leftShift, Key::space}},
        {u"us -option altwin:swap_alt_win"_s,
         {Key::leftControl, Key::leftAlt, Key::leftShift, Key::space}},
        {u"us"_s, usual}};
    for (const auto &[layout, chord] : rows) {
        m_desktop.setLayout(layout.split(u' '));
        EXPECT_TRUE(isReported(chord)) << layout.toStdString();
        m_pressed.clear();
        m_desktop.tap(chord);
        EXPECT_THAT(pressed(), ElementsAre(HotKeyId::Main)) << layout.toStdString();
    }
    // Super on another modifier bit.
    for (const auto &change : {u"clear mod3"_s, u"clear mod4"_s, u"add mod3 = Super_L"_s})
        ASSERT_EQ(runProcess(u"xmodmap"_s, {u"-e"_s, change}).exitCode, 0);
    EXPECT_TRUE(isReported(usual));
}

TEST_F(HotKeyDesktopTest, heldKeyIsOnePressAndTypesNothing)
{
    KeyRecorder window;
    ASSERT_EQ(registerMain(101, 0), 0);
    // In the middle of another key's repeats.
    m_desktop.press(Key::a);
    ASSERT_TRUE(waitUntil([&] { return window.presses.size() > 3; }));
    m_desktop.press(Key::f9);
    ASSERT_TRUE(waitUntil([&] { return !m_pressed.empty(); }));
    // The keyboard is free while the hotkey is held: what is posted reaches the application.
    window.presses.clear();
    X11SyntheticKeyboard keyboard(m_input);
    EXPECT_TRUE(keyboard.post(PasteChord::ShiftInsert));
    ASSERT_TRUE(
        waitUntil([&] { return !window.presses.empty() && window.presses.back() == Key::insert; }));
    m_desktop.release(Key::a);
    m_desktop.press(Key::f9);
    EXPECT_FALSE(waitUntil([&] { return m_pressed.size() > 1; }, std::chrono::milliseconds(1500)));
    m_desktop.release(Key::f9);
    EXPECT_EQ(std::ranges::count(window.presses, Key::f9), 0);
    m_pressed.clear();
    for (int i = 0; i < 50; ++i)
        m_desktop.tap({Key::f9});
    EXPECT_EQ(pressed().size(), 50U);
}

TEST_F(HotKeyDesktopTest, escapeHeldAfterCancelDoesNotSpill)
{
    KeyRecorder window;
    ASSERT_EQ(m_registrar.registerHotKey(HotKeyId::Escape, 53, 0), 0);
    m_desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return !m_pressed.empty(); }));
    m_registrar.unregisterHotKey(HotKeyId::Escape);
    // Long enough for its repeats, which begin after 660 ms by default.
    EXPECT_FALSE(
        waitUntil([&] { return !window.presses.empty(); }, std::chrono::milliseconds(1500)));
    // A new recording while it is still held.
    EXPECT_EQ(m_registrar.registerHotKey(HotKeyId::Escape, 53, 0), 0);
    EXPECT_FALSE(waitUntil([&] { return m_pressed.size() > 1; }, std::chrono::milliseconds(200)));
    m_desktop.release(Key::escape);
    m_desktop.tap({Key::escape});
    EXPECT_TRUE(waitUntil([&] { return m_pressed.size() == 2; }));
    m_registrar.unregisterHotKey(HotKeyId::Escape);
    // Escape belongs to the applications again.
    EXPECT_TRUE(waitUntil([&] {
        m_desktop.tap({Key::escape});
        return !window.presses.empty();
    }));
    EXPECT_EQ(window.presses.front(), Key::escape);
    EXPECT_EQ(m_pressed.size(), 2U);
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
    m_desktop.tap({Key::leftSuper, Key::leftShift, Key::space});
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

std::unique_ptr<Backends> backendsOn(const QByteArray &display)
{
    const auto before = qgetenv("DISPLAY");
    qputenv("DISPLAY", display);
    auto backends = std::make_unique<Backends>();
    qputenv("DISPLAY", before);
    return backends;
}

TEST_F(HotKeyDesktopTest, withoutServerNothingWorksAndAServerThatDiesLeavesNoBusyLoop)
{
    EXPECT_TRUE(backendsOn(":987")->isDead());
    QProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s});
    QByteArray number;
    ASSERT_TRUE(waitUntil([&] { return (number += server.readAll()).endsWith('\n'); }));
    const auto backends = backendsOn(":" + number.trimmed());
    ASSERT_EQ(backends->registrar.registerHotKey(HotKeyId::Main, 49, 0x300), 0);
    ASSERT_TRUE(backends->monitor.start([](const KeyEvent &) {}));
    server.kill();
    ASSERT_TRUE(server.waitForFinished());
    EXPECT_TRUE(waitUntil([&] { return backends->isDead(); }));
    // Each turn of the event loop that something wakes ends one of these waits.
    int wakeUps = 0;
    QElapsedTimer elapsed;
    for (elapsed.start(); elapsed.elapsed() < 300; ++wakeUps) {
        QTimer limit;
        limit.start(100);
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
    const std::tuple<quint8, quint32, quint32> rows[] = {
        {Key::leftSuper, 55, ModifierFlag::command},
        {Key::rightSuper, 54, ModifierFlag::command},
        {Key::leftShift, 56, ModifierFlag::shift},
        {Key::rightShift, 60, ModifierFlag::shift},
        {Key::leftAlt, 58, ModifierFlag::option},
        {Key::rightAlt, 61, ModifierFlag::option},
        {Key::leftControl, 59, ModifierFlag::control},
        {Key::rightControl, 62, ModifierFlag::control}};
    for (const auto &[key, keyCode, flag] : rows) {
        m_desktop.press(key);
        m_desktop.tap({Key::a});
        // A paste with the key held lifts it and puts it down again.
        EXPECT_TRUE(keyboard.post(PasteChord::ControlV));
        m_desktop.release(key);
        EXPECT_TRUE(waitUntil([&] { return events.size() >= 2; }));
        EXPECT_THAT(std::exchange(events, {}),
                    ElementsAre(KeyEvent{keyCode, flag, {}}, KeyEvent{keyCode, 0, {}}));
    }
    m_desktop.tap({Key::leftShift, Key::rightShift});
    EXPECT_TRUE(waitUntil([&] { return events.size() >= 4; }));
    EXPECT_EQ(events.at(2), (KeyEvent{60, ModifierFlag::shift, {}}));
    events.clear();
    {
        const KeyRecorder ourWindow;
        m_desktop.tap({Key::leftShift});
    }
    monitor.stop();
    m_desktop.tap({Key::leftAlt});
    EXPECT_THAT(pressed(), testing::IsEmpty());
    EXPECT_THAT(events, testing::IsEmpty());
}

} // namespace
