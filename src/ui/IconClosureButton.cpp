// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "IconClosureButton.h"

#include "FocusFrame.h"
#include "Palette.h"
#include "Symbol.h"

#include <QPainter>

namespace {

constexpr QSize buttonSize(24, 24);
constexpr qreal symbolMargin = 4;
constexpr qreal cornerRadius = 5;

} // namespace

IconClosureButton::IconClosureButton(const QString &symbolName,
                                     const QString &title,
                                     std::function<void()> action)
    : onClick(std::move(action))
    , m_symbolName(symbolName)
{
    setToolTip(title);
    setAccessibleName(title);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setFixedSize(buttonSize);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (onClick)
            onClick();
    });
}

QSize IconClosureButton::sizeHint() const
{
    return buttonSize;
}

void IconClosureButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
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
