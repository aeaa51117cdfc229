// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VirtualMainQueue.h"
#include "VoiceOverlayView.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class VoiceOverlayViewTest : public testing::Test
{
protected:
    QImage draw()
    {
        QImage image(m_view.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        m_view.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

    VirtualMainQueue m_queue;
    VoiceOverlayView m_view{m_queue};
};

} // namespace

TEST_F(VoiceOverlayViewTest, drawsItsShapesInTheirPlacesAndGreys)
{
    const auto recording = VoiceOverlayMode::recording(u"麦"_s);
    const auto typing = VoiceOverlayMode::typing(u"正在识别"_s);
    const auto status = VoiceOverlayMode::status(u"已取消"_s);
    // Mode, ticks of the animation, point, grey (0 to 255) and alpha.
    const std::tuple<VoiceOverlayMode, int, QPoint, int, int> probes[] = {
        {recording, 0, {1, 1}, 0, 0}, // nothing
        {recording, 0, {36, 20}, 18, 246}, // caption
        {recording, 0, {120, 6}, 38, 247}, // its outline
        {recording, 0, {59, 53}, 5, 243}, // pill
        {recording, 0, {69, 51}, 41, 255}, // microphone badge
        {recording, 0, {77, 50}, 213, 255}, // the microphone itself
        {recording, 0, {155, 50}, 237, 255}, // check badge
        {recording, 0, {120, 72}, 0, 14}, // shadow
        {typing, 0, {72, 41}, 10, 240}, // pill
        {typing, 12, {125, 28}, 44, 250}, // highlight
        {typing, 12, {112, 28}, 10, 240}, // beside it
        {typing, 24, {125, 28}, 10, 240}, // it has left, and comes again:
        {typing, 36, {125, 28}, 44, 250},
        {status, 12, {125, 28}, 10, 240}, // pill without a highlight
        {status, 0, {60, 41}, 0, 0},
    };
    m_view.startAnimating();
    for (const auto &[mode, ticks, point, grey, alpha] : probes) {
        m_view.setMode(mode);
        m_queue.advance(ticks * 33ms);
        const auto color = draw().pixelColor(point);
        EXPECT_NEAR(color.red(), grey, 4) << point.x() << ' ' << point.y() << " after " << ticks;
        EXPECT_NEAR(color.alpha(), alpha, 4) << point.x() << ' ' << point.y() << " after " << ticks;
        EXPECT_EQ(color.red(), color.blue());
    }
}

TEST_F(VoiceOverlayViewTest, movesWithTheLevelInItsRangeAndWhileAnimating)
{
    const auto first = draw();
    const auto at = [this](qreal level) {
        m_view.updateLevel(level);
        return draw();
    };
    EXPECT_EQ(at(-3), at(0.12));
    EXPECT_EQ(at(7), at(1));
    // The middle bar: 18 * (0.22 + level * amplitude of the first frame).
    EXPECT_GT(at(1).pixelColor(123, 46).red(), 200);
    EXPECT_LT(at(0.12).pixelColor(123, 48).red(), 60);
    EXPECT_EQ(at(0.32), first);
    m_view.startAnimating();
    m_queue.advance(100ms);
    const auto moved = draw();
    EXPECT_NE(moved, first);
    m_view.stopAnimating();
    m_queue.advance(1s);
    EXPECT_EQ(draw(), moved);
    m_view.setMode(m_view.mode());
    EXPECT_EQ(draw(), first);
}

TEST_F(VoiceOverlayViewTest, keepsTheBeginningOfALongCaption)
{
    const auto captioned = [this](int first, int second) {
        m_view.setMode(VoiceOverlayMode::recording(QString(first, u'口') + QString(second, u'二')));
        return draw();
    };
    const auto beginning = QRect(20, 6, 140, 28);
    const auto image = captioned(60, 0);
    EXPECT_EQ(captioned(400, 0), image);
    EXPECT_EQ(captioned(9, 60).copy(beginning), image.copy(beginning));
    EXPECT_EQ(captioned(0, 0).copy(210, 0, 30, 76), image.copy(210, 0, 30, 76));
}
