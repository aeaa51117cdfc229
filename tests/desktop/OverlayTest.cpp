// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "EventLoopMainQueue.h"
#include "Process.h"
#include "VoiceOverlayController.h"
#include "WaitUntil.h"
#include "X11Compositor.h"
#include "X11WorkArea.h"

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
    VoiceOverlayController m_overlay{m_queue, {hasCompositor, workArea}};
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

TEST_P(OverlayTest, followsThePointerToItsMonitorClearOfThePanelsThere)
{
    runCommand(u"xrandr --setmonitor L 640/170x800/211+0+0 screen"_s);
    runCommand(u"xrandr --setmonitor R 640/170x800/211+640+0 none"_s);
    ASSERT_TRUE(waitUntil([] { return QGuiApplication::screens().size() == 2; }));
    // Where the pointer is, what a panel reserves, and where the overlay is expected.
    const std::tuple<int, QString, QPoint> rows[] = {
        {100, u"0"_s, {200, 706}},
        {900, u"0"_s, {840, 706}},
        {900, u"0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 640, 1279"_s, {840, 666}},
        {100, u"0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 640, 1279"_s, {200, 706}},
        {100, u"64, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0"_s, {232, 706}},
        {100, u"704, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0"_s, {200, 706}},
        {900, u"704, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0"_s, {872, 706}},
        {900, u"0, 32, 20, 0, 0, 0, 0, 799, 0, 1279, 0, 0"_s, {824, 706}}};
    for (const auto &[x, reserved, expected] : rows) {
        const auto name = u"_NET_WM_STRUT_PARTIAL"_s;
        runCommand(u"xprop -id %1 -f %2 32c -set %2 '%3'; xdotool mousemove %4 300"_s.arg(
            QString::number(m_editor.winId()), name, reserved, QString::number(x)));
        m_overlay.show(VoiceOverlayMode::status(u"已取消"_s));
        EXPECT_EQ(panel()->pos(), expected) << qPrintable(reserved);
        EXPECT_TRUE(waitUntil(
            [&, at = expected + QPoint(72, 41)] { return qRed(pixelOnScreen(at)) < 40; }));
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
    VoiceOverlayController overlay(queue, {hasCompositor, workArea});
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
