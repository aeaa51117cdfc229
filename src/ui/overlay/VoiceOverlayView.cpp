// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VoiceOverlayView.h"

#include "InterfaceFont.h"
#include "VoiceOverlayLook.h"
#include "VoiceOverlayShadow.h"
#include "VoiceOverlayWaveform.h"

#include <QBitmap>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace VoiceOverlayLook;

namespace {

constexpr auto frameInterval = std::chrono::milliseconds(33);
constexpr qreal phaseStep = 0.075;
constexpr qreal lowestLevel = 0.12;

// A text a little wider than its place may use this much more on either side before it is cut.
constexpr qreal textTolerance = 4;

QPainterPath roundedPath(const QRectF &rect, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

void fillAndStroke(QPainter &painter,
                   const QPainterPath &path,
                   const Grey &fill,
                   const Grey &line = outline)
{
    painter.fillPath(path, fill.color());
    painter.strokePath(path, QPen(line.color(), outlineWidth));
}

void drawDisc(QPainter &painter, const QPointF &centre, const Grey &grey)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(grey.color());
    painter.drawEllipse(centre, badgeRadius, badgeRadius);
}

void drawMicrophoneBadge(QPainter &painter)
{
    const auto at = [](qreal x, qreal y) { return microphoneCentre + QPointF(x, y); };
    drawDisc(painter, microphoneCentre, microphoneDisc);
    QPainterPath glyph(at(0, 5));
    glyph.lineTo(at(0, -5));
    glyph.moveTo(at(-4, 1));
    glyph.cubicTo(at(-4, 7), at(4, 7), at(4, 1));
    painter.strokePath(glyph,
                       QPen(microphoneStroke.color(), glyphWidth, Qt::SolidLine, Qt::RoundCap));
}

void drawCheckBadge(QPainter &painter)
{
    const auto at = [](qreal x, qreal y) { return checkCentre + QPointF(x, y); };
    drawDisc(painter, checkCentre, checkDisc);
    QPainterPath mark(at(-5, 0));
    mark.lineTo(at(-1, 4));
    mark.lineTo(at(6, -5));
    painter.strokePath(
        mark, QPen(checkStroke.color(), glyphWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

} // namespace

VoiceOverlayView::VoiceOverlayView(MainQueue &queue, QWidget *parent)
    : QWidget(parent)
    , m_queue(queue)
{
    setFixedSize(viewSize);
    setFont(interfaceFont(fontSize, QFont::DemiBold));
    setMode(VoiceOverlayMode::recording(u"默认麦克风"_s));
}

void VoiceOverlayView::setMode(const VoiceOverlayMode &mode)
{
    m_mode = mode;
    m_phase = 0;
    setAccessibleName(mode.displayedText());
    setWindowTitle(mode.displayedText());
    update();
}

void VoiceOverlayView::updateLevel(qreal level)
{
    m_level = std::clamp(level, lowestLevel, 1.0);
    updateMoving();
}

void VoiceOverlayView::startAnimating()
{
    m_timer = m_queue.repeatEvery(frameInterval, [this] { advancePhase(); });
}

void VoiceOverlayView::stopAnimating()
{
    m_timer.reset();
}

QRegion VoiceOverlayView::shapeRegion() const
{
    QBitmap bitmap(size());
    bitmap.clear();
    QPainter painter(&bitmap);
    const auto add = [&painter](const QRectF &rect, qreal radius) {
        painter.fillPath(roundedPath(rect, radius), Qt::color1);
    };
    if (m_mode.kind == VoiceOverlayMode::Kind::Recording) {
        add(bubbleRect, bubbleRadius);
        add(recordingPillRect, pillRadius);
    } else {
        add(narrowPillRect, pillRadius);
    }
    painter.end();
    return {bitmap};
}

void VoiceOverlayView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    switch (m_mode.kind) {
    case VoiceOverlayMode::Kind::Recording:
        drawRecording(painter);
        break;
    case VoiceOverlayMode::Kind::Typing:
        drawTyping(painter);
        break;
    case VoiceOverlayMode::Kind::Status:
        drawStatus(painter);
        break;
    }
}

void VoiceOverlayView::advancePhase()
{
    m_phase += phaseStep;
    updateMoving();
    if (m_mode.kind != VoiceOverlayMode::Kind::Status)
        Q_EMIT moved();
}

// Redraws what depends on the phase and the level.
void VoiceOverlayView::updateMoving()
{
    if (m_mode.kind == VoiceOverlayMode::Kind::Recording)
        update(VoiceOverlayWaveform::bounds());
    else if (m_mode.kind == VoiceOverlayMode::Kind::Typing)
        update(narrowPillRect.toAlignedRect());
}

void VoiceOverlayView::drawRecording(QPainter &painter)
{
    drawShadows(painter);
    fillAndStroke(painter, roundedPath(bubbleRect, bubbleRadius), bubbleFill);
    drawText(painter, bubbleRect, bubbleTextInset, bubbleText.color());
    fillAndStroke(painter, roundedPath(recordingPillRect, pillRadius), recordingPillFill);
    drawMicrophoneBadge(painter);
    drawWaveform(painter);
    drawCheckBadge(painter);
}

// The highlight band enters from the left, crosses the pill and leaves on the right every 0.8 s.
void VoiceOverlayView::drawTyping(QPainter &painter) const
{
    constexpr qreal course = 1.8; // of the phase
    const auto pill = roundedPath(narrowPillRect, pillRadius);
    painter.fillPath(pill, narrowPillFill.color());
    painter.save();
    painter.setClipPath(pill);
    const qreal x = narrowPillRect.left() - highlightWidth
        + std::fmod(m_phase, course) / course * (narrowPillRect.width() + 2 * highlightWidth);
    painter.fillRect(QRectF(x, narrowPillRect.top(), highlightWidth, narrowPillRect.height()),
                     typingHighlight.color());
    painter.restore();
    painter.strokePath(pill, QPen(typingOutline.color(), outlineWidth));
    drawText(painter, narrowPillRect, typingTextInset, narrowPillText.color());
}

void VoiceOverlayView::drawStatus(QPainter &painter) const
{
    fillAndStroke(painter, roundedPath(narrowPillRect, pillRadius), narrowPillFill);
    drawText(painter, narrowPillRect, statusTextInset, narrowPillText.color());
}

void VoiceOverlayView::drawShadows(QPainter &painter)
{
    if (m_shadows.devicePixelRatio() != devicePixelRatioF() || m_shadows.isNull())
        m_shadows = voiceOverlayShadow(devicePixelRatioF());
    painter.drawImage(0, 0, m_shadows);
}

void VoiceOverlayView::drawWaveform(QPainter &painter) const
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(waveformBar.color());
    for (const auto &bar : VoiceOverlayWaveform::bars(m_level, m_phase))
        painter.drawRoundedRect(bar, bar.width() / 2, bar.width() / 2);
}

void VoiceOverlayView::drawText(QPainter &painter,
                                const QRectF &rect,
                                qreal inset,
                                const QColor &color) const
{
    // Line boxes differ between fonts: the ideographs' own middle is placed, 0.38 em above the
    // baseline, one pixel below the middle of the shape.
    const qreal baseline = rect.center().y() + 1 + 0.38 * font().pixelSize();
    const QFontMetricsF metrics(font());
    const auto text = metrics.elidedText(
        m_mode.displayedText(), Qt::ElideRight, rect.width() - 2 * inset + 2 * textTolerance);
    painter.setFont(font());
    painter.setPen(color);
    painter.drawText(QPointF(rect.center().x() - metrics.horizontalAdvance(text) / 2, baseline),
                     text);
}
