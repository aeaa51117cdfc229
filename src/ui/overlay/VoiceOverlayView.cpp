// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VoiceOverlayView.h"

#include "InterfaceFont.h"

#include <QBitmap>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize viewSize(240, 76);
constexpr QRectF bubbleRect(30, 6, 180, 28);
constexpr QRectF recordingPillRect(54, 36, 132, 34);
constexpr QRectF narrowPillRect(65, 24, 110, 34);
constexpr QRectF waveformRect(102, 44, 42, 18);
constexpr QPointF microphoneCentre(77, 53);
constexpr QPointF checkCentre(163, 53);
constexpr qreal bubbleRadius = 8;
constexpr qreal badgeRadius = 12;
constexpr qreal pillRadius = 17;

constexpr auto frameInterval = std::chrono::milliseconds(33);
constexpr qreal phaseStep = 0.075;
constexpr qreal lowestLevel = 0.12;

// A text a little wider than its place may use this much more on either side before it is cut.
constexpr qreal textTolerance = 4;

QColor grey(qreal white, qreal alpha)
{
    return QColor::fromRgbF(float(white), float(white), float(white), float(alpha));
}

QPainterPath roundedPath(const QRectF &rect, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

void fillAndStroke(QPainter &painter,
                   const QPainterPath &path,
                   const QColor &fill,
                   const QColor &outline)
{
    painter.fillPath(path, fill);
    painter.strokePath(path, QPen(outline, 1));
}

void drawDisc(QPainter &painter, const QPointF &centre, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(centre, badgeRadius, badgeRadius);
}

void drawMicrophoneBadge(QPainter &painter)
{
    const auto at = [](qreal x, qreal y) { return microphoneCentre + QPointF(x, y); };
    drawDisc(painter, microphoneCentre, grey(0.16, 1));
    QPainterPath glyph(at(0, 5));
    glyph.lineTo(at(0, -5));
    glyph.moveTo(at(-4, 1));
    glyph.cubicTo(at(-4, 7), at(4, 7), at(4, 1));
    painter.strokePath(glyph, QPen(grey(0.88, 0.94), 2, Qt::SolidLine, Qt::RoundCap));
}

void drawCheckBadge(QPainter &painter)
{
    const auto at = [](qreal x, qreal y) { return checkCentre + QPointF(x, y); };
    drawDisc(painter, checkCentre, grey(0.93, 1));
    QPainterPath mark(at(-5, 0));
    mark.lineTo(at(-1, 4));
    mark.lineTo(at(6, -5));
    painter.strokePath(mark, QPen(grey(0.08, 0.92), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

// Distance from the point to the outline of the rounded rectangle; negative inside.
qreal distanceToOutline(const QPointF &point, const QRectF &rect, qreal radius)
{
    const auto offset = point - rect.center();
    const qreal x = std::abs(offset.x()) - rect.width() / 2 + radius;
    const qreal y = std::abs(offset.y()) - rect.height() / 2 + radius;
    return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - radius;
}

// A black shadow one pixel below the shape. The blur radius is twice the Gaussian's deviation.
struct Shadow
{
    QRectF rect;
    qreal radius = 0;
    qreal blur = 0;
    qreal alpha = 0;

    [[nodiscard]] qreal alphaAt(const QPointF &point) const
    {
        const qreal distance = distanceToOutline(point, rect.translated(0, 1), radius);
        return alpha * std::erfc(distance / (blur / 2 * std::sqrt(2.0))) / 2;
    }
};

QImage shadowImage(qreal pixelRatio)
{
    constexpr Shadow bubble{bubbleRect, bubbleRadius, 7, 0.22};
    constexpr Shadow pill{recordingPillRect, pillRadius, 6, 0.18};
    QImage image((QSizeF(viewSize) * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const auto point = QPointF(x + 0.5, y + 0.5) / pixelRatio;
            const qreal clear = (1 - bubble.alphaAt(point)) * (1 - pill.alphaAt(point));
            image.setPixel(x, y, qRgba(0, 0, 0, qRound(255 * (1 - clear))));
        }
    }
    return image;
}

} // namespace

VoiceOverlayView::VoiceOverlayView(MainQueue &queue, QWidget *parent)
    : QWidget(parent)
    , m_queue(queue)
{
    setFixedSize(viewSize);
    setFont(interfaceFont(13, QFont::DemiBold));
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
}

// Redraws what depends on the phase and the level.
void VoiceOverlayView::updateMoving()
{
    if (m_mode.kind == VoiceOverlayMode::Kind::Recording)
        update(waveformRect.toAlignedRect());
    else if (m_mode.kind == VoiceOverlayMode::Kind::Typing)
        update(narrowPillRect.toAlignedRect());
}

void VoiceOverlayView::drawRecording(QPainter &painter)
{
    const auto outline = grey(1, 0.16);
    drawShadows(painter);
    fillAndStroke(painter, roundedPath(bubbleRect, bubbleRadius), grey(0.07, 0.96), outline);
    drawText(painter, bubbleRect.adjusted(10, 0, -10, 0), grey(0.98, 0.98));
    fillAndStroke(painter, roundedPath(recordingPillRect, pillRadius), grey(0.02, 0.95), outline);
    drawMicrophoneBadge(painter);
    drawWaveform(painter);
    drawCheckBadge(painter);
}

// The highlight band enters from the left, crosses the pill and leaves on the right every 0.8 s.
void VoiceOverlayView::drawTyping(QPainter &painter) const
{
    constexpr qreal bandWidth = 42;
    constexpr qreal course = 1.8; // of the phase
    const auto pill = roundedPath(narrowPillRect, pillRadius);
    painter.fillPath(pill, grey(0.04, 0.94));
    painter.save();
    painter.setClipPath(pill);
    const qreal x = narrowPillRect.left() - bandWidth
        + std::fmod(m_phase, course) / course * (narrowPillRect.width() + 2 * bandWidth);
    painter.fillRect(QRectF(x, narrowPillRect.top(), bandWidth, narrowPillRect.height()),
                     grey(0.22, 0.72));
    painter.restore();
    painter.strokePath(pill, QPen(grey(1, 0.18), 1));
    drawText(painter, narrowPillRect.adjusted(14, 0, -14, 0), grey(0.92, 0.92));
}

void VoiceOverlayView::drawStatus(QPainter &painter) const
{
    fillAndStroke(
        painter, roundedPath(narrowPillRect, pillRadius), grey(0.04, 0.94), grey(1, 0.16));
    drawText(painter, narrowPillRect.adjusted(12, 0, -12, 0), grey(0.92, 0.92));
}

void VoiceOverlayView::drawShadows(QPainter &painter)
{
    if (m_shadows.devicePixelRatio() != devicePixelRatioF() || m_shadows.isNull())
        m_shadows = shadowImage(devicePixelRatioF());
    painter.drawImage(0, 0, m_shadows);
}

void VoiceOverlayView::drawWaveform(QPainter &painter) const
{
    constexpr int bars = 9;
    constexpr qreal width = 2.5;
    constexpr qreal gap = (waveformRect.width() - bars * width) / (bars - 1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(grey(0.95, 0.95));
    for (int i = 0; i < bars; ++i) {
        const qreal wave = std::abs(std::sin(m_phase * 4.2 + i * 0.82));
        const qreal amplitude = 0.58 + 0.42 * wave;
        const qreal falloff = 1 - std::abs(qreal(i) / (bars - 1) - 0.5) * 1.25;
        const qreal share = 0.22 + m_level * amplitude * std::max(0.28, falloff);
        const qreal height = std::max(4.0, waveformRect.height() * share);
        const QRectF bar(waveformRect.left() + i * (width + gap),
                         waveformRect.center().y() - height / 2,
                         width,
                         height);
        painter.drawRoundedRect(bar, width / 2, width / 2);
    }
}

void VoiceOverlayView::drawText(QPainter &painter, const QRectF &rect, const QColor &color) const
{
    // Line boxes differ between fonts: the ideographs' own middle is placed, 0.38 em above the
    // baseline, one pixel below the middle of the shape.
    const qreal baseline = rect.center().y() + 1 + 0.38 * font().pixelSize();
    const QFontMetricsF metrics(font());
    const auto text = metrics.elidedText(
        m_mode.displayedText(), Qt::ElideRight, rect.width() + 2 * textTolerance);
    painter.setFont(font());
    painter.setPen(color);
    painter.drawText(QPointF(rect.center().x() - metrics.horizontalAdvance(text) / 2, baseline),
                     text);
}
