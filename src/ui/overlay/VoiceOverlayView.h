// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainQueue.h"
#include "VoiceOverlayMode.h"

#include <QImage>
#include <QRegion>
#include <QWidget>

#include <memory>

// Draws the overlay, 240 by 76 pixels: what is said into, and what becomes of it.
class VoiceOverlayView final : public QWidget
{
    Q_OBJECT
public:
    // The queue drives the animation.
    explicit VoiceOverlayView(MainQueue &queue, QWidget *parent = nullptr);

    [[nodiscard]] const VoiceOverlayMode &mode() const { return m_mode; }
    // Starts the animation's course anew. The words are also the widget's accessible name.
    void setMode(const VoiceOverlayMode &mode);
    // The input level for the waveform, held within 0.12 to 1.
    void updateLevel(qreal level);

    // 30 frames a second; starting again restarts the timer.
    void startAnimating();
    void stopAnimating();
    [[nodiscard]] bool isAnimating() const { return m_timer != nullptr; }

    // The pixels the current mode's shapes cover, shadows left out: the window's mask where
    // translucency is not to be had.
    [[nodiscard]] QRegion shapeRegion() const;

Q_SIGNALS:
    // The animation has gone a step further.
    void moved();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void advancePhase();
    void updateMoving();
    void drawRecording(QPainter &painter);
    void drawTyping(QPainter &painter) const;
    void drawStatus(QPainter &painter) const;
    void drawShadows(QPainter &painter);
    void drawWaveform(QPainter &painter) const;
    void drawText(QPainter &painter, const QRectF &rect, qreal inset, const QColor &color) const;

    MainQueue &m_queue;
    VoiceOverlayMode m_mode = VoiceOverlayMode::recording(QStringLiteral("默认麦克风"));
    qreal m_level = 0.32;
    qreal m_phase = 0; // grows by 2.25 a second
    std::unique_ptr<RepeatingTimer> m_timer;
    QImage m_shadows; // of the recording shapes, made when first needed
};
