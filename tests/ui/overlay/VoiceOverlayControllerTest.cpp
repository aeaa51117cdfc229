// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Approved.h"
#include "Description.h"
#include "VirtualMainQueue.h"
#include "VoiceOverlayController.h"
#include "VoiceOverlayView.h"

#include <QApplication>
#include <QPaintEvent>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

// Notes what a widget redraws.
class Redraws final : public QObject
{
public:
    explicit Redraws(QWidget &widget) { widget.installEventFilter(this); }
    QRegion take()
    {
        QApplication::processEvents();
        return std::exchange(m_region, {});
    }

private:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }

    QRegion m_region;
};

// A surface that keeps what it is shown.
class KeptPicture final : public OverlaySurface
{
public:
    void show(const QImage &shown) override
    {
        picture = shown;
        ++shows;
    }
    void hide() override { picture = {}; }

    QImage picture;
    int shows = 0;
};

class VoiceOverlayControllerTest : public testing::Test
{
protected:
    VoiceOverlayControllerTest()
    {
        standardizeLook();
        m_overlay.prepare();
        for (auto *window : QApplication::topLevelWidgets())
            if (auto *view = qobject_cast<VoiceOverlayView *>(window))
                m_view = view;
    }

    // Shows the mode and lets it move for a time.
    QString after(const VoiceOverlayMode &mode, std::chrono::milliseconds time)
    {
        m_overlay.show(mode);
        m_queue.advance(time);
        return describe(*m_view);
    }

    const VoiceOverlayMode m_recording = VoiceOverlayMode::recording(u"麦克风"_s);
    const VoiceOverlayMode m_typing = VoiceOverlayMode::typing(u"正在识别"_s);
    VirtualMainQueue m_queue;
    VoiceOverlayController m_overlay{m_queue, {[] { return true; }, &QScreen::availableGeometry}};
    VoiceOverlayView *m_view = nullptr;
};

} // namespace

TEST_F(VoiceOverlayControllerTest, drawsEveryModeAsApproved)
{
    m_overlay.show(m_recording);
    QString text = u"RECORDING\n"_s + describe(*m_view);
    m_overlay.updateLevel(7);
    text += u"LOUD, 0.1 S LATER\n"_s + after(m_recording, 100ms);
    m_overlay.updateLevel(-3);
    text += u"SILENT\n"_s + after(m_recording, 0ms);
    text += u"LONG CAPTION\n"_s + after(VoiceOverlayMode::recording(QString(60, u'口')), 0ms);
    text += u"TYPING\n"_s + after(m_typing, 0ms);
    text += u"0.4 S LATER\n"_s + after(m_typing, 400ms);
    text += u"1.2 S LATER\n"_s + after(m_typing, 1200ms);
    text += u"STATUS\n"_s + after(VoiceOverlayMode::status(u"已取消"_s), 400ms);
    EXPECT_TRUE(isApproved(u"overlay"_s, text));
}

TEST_F(VoiceOverlayControllerTest, redrawsWhatMovesWhileItIsShown)
{
    Redraws redraws(*m_view);
    m_overlay.show(m_recording);
    EXPECT_EQ(redraws.take(), m_view->rect());
    m_overlay.updateLevel(1);
    const QRect loudestBars(102, 42, 42, 22);
    EXPECT_EQ(redraws.take().intersected(loudestBars), loudestBars);
    m_queue.advance(33ms);
    EXPECT_EQ(redraws.take().intersected(loudestBars), loudestBars);
    m_overlay.show(m_typing);
    redraws.take();
    m_queue.advance(33ms);
    const QRect pill(65, 24, 110, 34);
    EXPECT_EQ(redraws.take().intersected(pill), pill);
    EXPECT_EQ(m_overlay.shownMode(), m_typing);
    m_overlay.hide();
    EXPECT_FALSE(m_view->isAnimating() || m_view->isVisible() || m_overlay.shownMode());
}

TEST(VoiceOverlaySurface, getsAPictureOfEveryStepInTheWindowsPlace)
{
    VirtualMainQueue queue;
    KeptPicture surface;
    VoiceOverlayController overlay(queue,
                                   {[] { return true; }, &QScreen::availableGeometry, &surface});
    overlay.show(VoiceOverlayMode::typing(u"正在识别"_s));
    const auto first = surface.picture;
    EXPECT_EQ(first.deviceIndependentSize(), QSizeF(240, 76));
    EXPECT_EQ(qAlpha(first.pixel(2, 2)), 0);
    EXPECT_GT(qAlpha(first.pixel(120, 26)), 200);
    queue.advance(400ms);
    EXPECT_NE(surface.picture, first);
    for (const auto *const window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->isVisible());
    overlay.show(VoiceOverlayMode::status(u"已取消"_s));
    const int shows = surface.shows;
    queue.advance(400ms); // nothing moves
    EXPECT_EQ(surface.shows, shows);
    overlay.hide();
    EXPECT_TRUE(surface.picture.isNull() && !overlay.shownMode());
}
