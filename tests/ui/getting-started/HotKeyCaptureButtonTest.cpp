// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HotKeyCaptureButton.h"
#include "WaitUntil.h"

#include <QApplication>
#include <QKeyEvent>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Stroke
{
    quint32 scanCode;
    int key;
    Qt::KeyboardModifiers modifiers; // what the display saw before
};
using Strokes = std::vector<Stroke>;

const Stroke space{65, Qt::Key_Space, {}};
const Stroke leftShift{50, Qt::Key_Shift, {}};
const Stroke leftOption{64, Qt::Key_Alt, {}};

class HotKeyCaptureButtonTest : public testing::Test
{
protected:
    HotKeyCaptureButtonTest()
    {
        m_button.onCapture = [this](const HotKeyConfig &hotKey) { m_captured = hotKey; };
        m_button.onCapturingChange = [this](bool isOn) { m_reports.push_back(isOn); };
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(waitUntil([this] { return m_button.isActiveWindow(); }));
    }

    // Returns whether the event goes no further.
    bool send(QEvent::Type type, const Stroke &stroke, bool isRepeat = false)
    {
        QKeyEvent event(type, stroke.key, stroke.modifiers, stroke.scanCode, 0, 0, {}, isRepeat);
        QApplication::sendEvent(&m_button, &event);
        return event.isAccepted();
    }
    bool press(const Stroke &stroke) { return send(QEvent::KeyPress, stroke); }
    void release(const Stroke &stroke) { send(QEvent::KeyRelease, stroke); }
    bool isPrompting() const { return m_button.text() == u"按下新的快捷键"_s; }

    QWidget m_window;
    HotKeyCaptureButton m_button{[](quint32) { return u"&"_s; }, &m_window};
    QPushButton m_next{&m_window};
    HotKeyConfig m_captured;
    std::vector<bool> m_reports;
};

TEST_F(HotKeyCaptureButtonTest, capturedKeysDoNothingElse)
{
    const std::pair<Stroke, QString> rows[] = {
        {{10, Qt::Key_1, Qt::ControlModifier}, u"⌃&"_s},
        {{23, Qt::Key_Tab, {}}, u"Tab"_s},
        {{23, Qt::Key_Backtab, Qt::ShiftModifier}, u"⇧Tab"_s},
        {{36, Qt::Key_Return, {}}, u"Return"_s},
        {space, u"Space"_s}};
    for (const auto &[stroke, name] : rows) {
        m_button.beginCapture();
        EXPECT_TRUE(send(QEvent::ShortcutOverride, stroke));
        press(stroke);
        // Held on: neither captured again nor a press of the button nor a move of the focus.
        send(QEvent::KeyPress, stroke, true);
        release(stroke);
        EXPECT_EQ(m_captured.displayName, name);
        EXPECT_EQ(m_button.accessibleName(), name);
        EXPECT_EQ(m_button.text().count(u"&&"_s), name.count(u'&'));
        EXPECT_EQ(std::exchange(m_reports, {}), (std::vector{true, false}));
        EXPECT_TRUE(m_button.hasFocus());
    }
}

TEST_F(HotKeyCaptureButtonTest, modifierReleasedAloneIsTheHotKey)
{
    const Stroke rightShift{62, Qt::Key_Shift, Qt::ShiftModifier};
    // What is pressed and then released, and what the last release makes the hotkey.
    const std::tuple<Strokes, Strokes, QString> rows[] = {
        {{leftOption, leftShift}, {leftShift}, u"左⇧"_s},
        {{leftShift, rightShift}, {rightShift, leftShift}, u"右⇧"_s},
        {{leftShift, {66, Qt::Key_CapsLock, {}}}, {leftShift}, u"左⇧"_s}};
    for (const auto &[pressed, released, name] : rows) {
        m_button.beginCapture();
        for (const auto &stroke : pressed)
            press(stroke);
        for (const auto &stroke : released) {
            EXPECT_EQ(m_button.text(), u"继续按字母/空格，或松开设为 "_s + name);
            release(stroke);
        }
        EXPECT_EQ(m_captured.displayName, name);
        release(leftOption);
    }
    // A modifier whose release goes to another window was not pressed alone.
    m_button.beginCapture();
    press(leftOption);
    m_next.setFocus();
    m_button.setFocus();
    press(leftShift);
    EXPECT_EQ(m_captured.displayName, u"左⇧"_s);
}

TEST_F(HotKeyCaptureButtonTest, beginsByClickOrKeyAndEndsByEscape)
{
    EXPECT_TRUE(send(QEvent::ShortcutOverride, {9, Qt::Key_Escape, {}}));
    QMouseEvent click(QEvent::MouseButtonPress, {}, {}, Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&m_button, &click);
    EXPECT_TRUE(isPrompting() && !m_button.isDown());
    EXPECT_TRUE(press({9, Qt::Key_Escape, {}}));
    EXPECT_EQ(m_button.text(), u"⌘⇧Space"_s);
    press(space);
    release(space);
    m_button.setHotKey({40, 0x1000, u"⌃K"_s});
    EXPECT_TRUE(isPrompting());
    press({66, Qt::Key_Escape, Qt::AltModifier}); // Caps Lock made Escape
    EXPECT_EQ(m_button.text(), u"⌃K"_s);
    press({36, Qt::Key_Return, {}});
    EXPECT_TRUE(isPrompting());
}

TEST_F(HotKeyCaptureButtonTest, capturingIsReportedForTheActiveWindowOnly)
{
    m_button.beginCapture();
    m_button.hide();
    m_button.show();
    EXPECT_EQ(std::exchange(m_reports, {}), (std::vector{true, false, true}));
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(waitUntil([this] { return m_reports == std::vector{false}; }));
    m_window.activateWindow();
    EXPECT_TRUE(waitUntil([this] { return m_reports == std::vector{false, true}; }));
}

} // namespace
