// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SelectableTextLine.h"

#include <QEvent>
#include <QPainter>

namespace {

// What a line edit keeps free beside its text.
constexpr int builtInMargin = 2;
constexpr int focusLineWidth = 2;

} // namespace

SelectableTextLine::SelectableTextLine(const QString &text,
                                       const QString &name,
                                       const QFont &font,
                                       SemanticColor color,
                                       Qt::TextElideMode elideMode)
    : QLineEdit(text)
    , m_color(color)
    , m_elideMode(elideMode)
{
    setReadOnly(true);
    setFrame(false);
    setFont(font);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setTextMargins(-builtInMargin, 0, -builtInMargin, 0);
    setCursorPosition(0);
    setAccessibleName(name);
    applyColor();
}

QSize SelectableTextLine::sizeHint() const
{
    return fontMetrics().size(Qt::TextSingleLine, text()) + QSize(0, focusLineWidth);
}

QSize SelectableTextLine::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void SelectableTextLine::paintEvent(QPaintEvent *event)
{
    if (!hasFocus() && fontMetrics().horizontalAdvance(text()) > width()) {
        paintShortened();
        return;
    }
    QLineEdit::paintEvent(event);
    if (hasFocus())
        QPainter(this).fillRect(0,
                                height() - focusLineWidth,
                                width(),
                                focusLineWidth,
                                Palette::color(SemanticColor::ControlAccent));
}

void SelectableTextLine::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyColor();
}

void SelectableTextLine::applyColor()
{
    Palette::apply(*this, QPalette::Text, m_color);
}

void SelectableTextLine::paintShortened()
{
    QPainter painter(this);
    painter.setPen(Palette::color(m_color));
    painter.drawText(rect(),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), m_elideMode, width()));
}
