// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VirtualMainQueue.h"
#include "VoiceOverlayController.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class VoiceOverlayControllerTest : public testing::Test
{
protected:
    static QWidget *panel() { return QApplication::topLevelWidgets().value(0); }

    VirtualMainQueue m_queue;
    bool m_hasCompositor = true;
    VoiceOverlayController m_overlay{m_queue, [this] { return m_hasCompositor; }};
};

} // namespace

TEST_F(VoiceOverlayControllerTest, showsAboveTheBottomOfTheScreenAndHides)
{
    m_overlay.updateLevel(0.5);
    m_overlay.hide();
    EXPECT_EQ(panel(), nullptr) << "nothing is built before it is needed";
    const auto mode = VoiceOverlayMode::typing(u"正在识别"_s);
    m_overlay.show(mode);
    EXPECT_EQ(m_overlay.shownMode(), mode);
    const auto available = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(panel()->geometry(),
              QRect(available.center().x() + 1 - 120, available.bottom() + 1 - 18 - 76, 240, 76));
    m_overlay.hide();
    EXPECT_FALSE(panel()->isVisible());
    EXPECT_EQ(m_overlay.shownMode(), std::nullopt);
}

TEST_F(VoiceOverlayControllerTest, masksItsShapesOnlyWithoutACompositor)
{
    for (const bool hasCompositor : {true, false, true}) {
        m_hasCompositor = hasCompositor;
        m_overlay.show(VoiceOverlayMode::recording(u"麦"_s));
        EXPECT_EQ(panel()->mask().isEmpty(), hasCompositor);
    }
}
