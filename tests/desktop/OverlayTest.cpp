// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "EventLoopMainQueue.h"
#include "Process.h"
#include "VoiceOverlayController.h"
#include "WaitUntil.h"
#include "X11Compositor.h"

#include <QAccessible>
#include <QApplication>
#include <QPlainTextEdit>
#include <QScreen>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Read when the application object is made: assistive technology finds us without being asked for.
const bool isAccessible = qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");

QRgb pixelOnScreen(const QPoint &point)
{
    const auto pixel = QGuiApplication::primaryScreen()->grabWindow(0, point.x(), point.y(), 1, 1);
    return pixel.toImage().pixel(0, 0);
}

QWidget *panel()
{
    for (auto *widget : QApplication::topLevelWidgets())
        if (widget->windowFlags().testFlag(Qt::BypassWindowManagerHint))
            return widget;
    return nullptr;
}

// The boolean says whether a compositor runs.
class OverlayTest : public testing::TestWithParam<bool>
{
protected:
    void SetUp() override
    {
        if (GetParam())
            m_compositor.start(u"picom"_s, {u"--backend"_s, u"xrender"_s});
        ASSERT_TRUE(waitUntil([] { return hasCompositor() == GetParam(); }));
        m_editor.setWindowFlag(Qt::FramelessWindowHint);
        m_editor.setStyleSheet(u"background: #c04020; border: none"_s);
        m_editor.setGeometry(QGuiApplication::primaryScreen()->geometry());
        m_editor.show();
        ASSERT_TRUE(waitUntil([this] { return m_editor.isActiveWindow(); }));
    }

    EventLoopMainQueue m_queue;
    VoiceOverlayController m_overlay{m_queue, hasCompositor};
    QPlainTextEdit m_editor;
    BackgroundProcess m_compositor;
};

} // namespace

TEST_P(OverlayTest, leavesFocusAndClicksToWhatLiesBelow)
{
    const auto focused = runCommand(u"xdotool getwindowfocus"_s).output;
    m_editor.setPlainText(QString(80, u'\n'));
    m_editor.moveCursor(QTextCursor::Start);
    EXPECT_EQ(panel(), nullptr) << "nothing is built before it is needed";
    m_overlay.show(VoiceOverlayMode::recording(u"麦"_s));
    const auto corner = panel()->geometry().topLeft();
    const auto onThePill = corner + QPoint(61, 53);
    // It is on the screen, and nothing is where it draws nothing.
    EXPECT_TRUE(waitUntil([&] {
        return qRed(pixelOnScreen(onThePill)) < 40
            && pixelOnScreen(corner + QPoint(1, 1)) == 0xffc04020;
    }));
    EXPECT_EQ(runCommand(u"xdotool getwindowfocus"_s).output, focused);
    const auto clickAndType = u"xdotool mousemove %1 %2 click 1 type k"_s;
    runCommand(clickAndType.arg(onThePill.x()).arg(onThePill.y()));
    EXPECT_TRUE(waitUntil([this] { return m_editor.toPlainText().contains(u'k'); }));
    EXPECT_FALSE(m_editor.toPlainText().startsWith(u'k')) << "the click moved the cursor";
    EXPECT_EQ(m_overlay.shownMode(), VoiceOverlayMode::recording(u"麦"_s));
    m_overlay.hide();
    EXPECT_EQ(m_overlay.shownMode(), std::nullopt);
    EXPECT_TRUE(waitUntil([&] { return pixelOnScreen(onThePill) == 0xffc04020; }));
}

TEST_P(OverlayTest, followsThePointerToItsMonitor)
{
    runCommand(u"xrandr --setmonitor L 640/170x800/211+0+0 screen"_s);
    runCommand(u"xrandr --setmonitor R 640/170x800/211+640+0 none"_s);
    ASSERT_TRUE(waitUntil([] { return QGuiApplication::screens().size() == 2; }));
    for (const int x : {100, 900}) {
        runCommand(u"xdotool mousemove %1 300"_s.arg(x));
        m_overlay.show(VoiceOverlayMode::status(u"已取消"_s));
        const QPoint expected(x < 640 ? 200 : 840, 800 - 18 - 76);
        EXPECT_EQ(panel()->pos(), expected);
        EXPECT_TRUE(waitUntil([&] { return qRed(pixelOnScreen(expected + QPoint(72, 41))) < 40; }));
    }
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutCompositor, OverlayTest, testing::Bool());

TEST(OverlayAccessibility, itsNameIsWhatItShows)
{
    // Asking for the accessibility bus starts it.
    runCommand(u"gdbus call --session --dest org.a11y.Bus -o /org/a11y/bus "
               "-m org.a11y.Bus.GetAddress"_s);
    ASSERT_TRUE(waitUntil([] { return QAccessible::isActive(); }));
    EventLoopMainQueue queue;
    VoiceOverlayController overlay(queue, hasCompositor);
    overlay.show(VoiceOverlayMode::typing(u"正在识别"_s));
    static QStringList announced;
    const auto previous = QAccessible::installUpdateHandler([](QAccessibleEvent *event) {
        if (event->type() == QAccessible::NameChanged)
            announced << event->accessibleInterface()->text(QAccessible::Name);
    });
    overlay.show(VoiceOverlayMode::typing(u"正在整理"_s));
    overlay.show(VoiceOverlayMode::recording(u"桌上的麦克风"_s));
    QAccessible::installUpdateHandler(previous);
    EXPECT_EQ(announced, QStringList({u"正在整理"_s, u"使用中 桌上的麦克风"_s}));
    // As a screen reader finds it; its first look at the desktop can be empty.
    const auto script = u"/usr/bin/python3 -c 'import pyatspi\n"
                        "for a in pyatspi.Registry.getDesktop(0):\n"
                        "  for w in a: print(w.name)'"_s;
    EXPECT_TRUE(
        waitUntil([&script] { return runCommand(script).output.contains("使用中 桌上的麦克风"); }));
}
