// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VoiceOverlayController.h"

#include "VoiceOverlayView.h"

#include <QCursor>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>

#include <cmath>

namespace {

constexpr int distanceFromEdge = 18;

} // namespace

VoiceOverlayController::VoiceOverlayController(MainQueue &queue, Surroundings surroundings)
    : m_queue(queue)
    , m_surroundings(std::move(surroundings))
{}

VoiceOverlayController::~VoiceOverlayController() = default;

void VoiceOverlayController::prepare()
{
    if (m_panel)
        return;
    buildPanel();
    QImage canvas(m_panel->size(), QImage::Format_ARGB32_Premultiplied);
    m_panel->render(&canvas);
}

void VoiceOverlayController::show(const VoiceOverlayMode &mode)
{
    if (!m_panel)
        buildPanel();
    m_panel->setMode(mode);
    if (m_surroundings.surface != nullptr)
        showPicture();
    else
        showPanel();
    m_panel->startAnimating();
}

void VoiceOverlayController::hide()
{
    if (!m_panel)
        return;
    m_panel->stopAnimating();
    m_panel->hide();
    if (m_surroundings.surface != nullptr)
        m_surroundings.surface->hide();
}

void VoiceOverlayController::updateLevel(double level)
{
    if (m_panel)
        m_panel->updateLevel(level);
}

std::optional<VoiceOverlayMode> VoiceOverlayController::shownMode() const
{
    if (!m_panel || !m_panel->isAnimating())
        return {};
    return m_panel->mode();
}

void VoiceOverlayController::buildPanel()
{
    m_panel = std::make_unique<VoiceOverlayView>(m_queue);
    // A window manager that gets hold of the window swallows the clicks meant for what lies below.
    m_panel->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
                            | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus
                            | Qt::BypassWindowManagerHint);
    m_panel->setAttribute(Qt::WA_TranslucentBackground);
    m_panel->setAttribute(Qt::WA_ShowWithoutActivating);
    if (m_surroundings.surface != nullptr)
        QObject::connect(
            m_panel.get(), &VoiceOverlayView::moved, m_panel.get(), [this] { showPicture(); });
}

void VoiceOverlayController::showPanel()
{
    positionPanel();
    updateMask();
    m_panel->show();
    m_panel->raise();
}

void VoiceOverlayController::showPicture()
{
    const auto ratio = std::ceil(qGuiApp->devicePixelRatio());
    QImage picture(m_panel->size() * ratio, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    m_panel->render(&picture, {}, {}, QWidget::DrawChildren);
    m_surroundings.surface->show(picture);
}

void VoiceOverlayController::positionPanel()
{
    const auto *screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const auto available = m_surroundings.workArea(*screen);
    m_panel->move(available.x() + (available.width() - m_panel->width()) / 2,
                  available.y() + available.height() - distanceFromEdge - m_panel->height());
}

void VoiceOverlayController::updateMask()
{
    if (m_surroundings.hasCompositor())
        m_panel->clearMask();
    else
        m_panel->setMask(m_panel->shapeRegion());
}
