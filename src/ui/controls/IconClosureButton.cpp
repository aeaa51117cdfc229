// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "IconClosureButton.h"

#include "FocusFrame.h"
#include "Palette.h"
#include "Symbol.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr QSize buttonSize(24, 24);
constexpr qreal symbolMargin = 4;
constexpr qreal cornerRadius = 5;

} // namespace

IconClosureButton::IconClosureButton(QString symbolName,
                                     const QString &title,
                                     std::function<void()> action)
    : onClick(std::move(action))
    , m_symbolName(std::move(symbolName))
{
    setToolTip(title);
    setAccessibleName(title);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setFixedSize(buttonSize);
    connect(this, &QAbstractButton::clicked, this, [this] { onClick(); });
}

QSize IconClosureButton::sizeHint() const
{
    return buttonSize;
}

void IconClosureButton::setOpacity(double opacity)
{
    m_opacity = opacity;
    update();
}

void IconClosureButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down)
        event->ignore();
    else
        QAbstractButton::keyPressEvent(event);
}

void IconClosureButton::paintEvent(QPaintEvent *)
{
    if (m_opacity == 0)
        return;
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse() || isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Palette::color(SemanticColor::Label, isDown() ? 0.16 : 0.08));
        painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    }
    drawSymbol(painter,
               QRectF(rect()).adjusted(symbolMargin, symbolMargin, -symbolMargin, -symbolMargin),
               m_symbolName,
               Palette::color(SemanticColor::SecondaryLabel));
    drawFocusFrame(painter, *this);
}
