// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TextLabel.h"

#include <QEvent>

TextLabel::TextLabel(const QString &text, const QFont &font, SemanticColor color)
    : QLabel(text)
    , m_color(color)
{
    setTextFormat(Qt::PlainText);
    setFont(font);
    applyColor();
}

void TextLabel::setColor(SemanticColor color)
{
    m_color = color;
    applyColor();
}

void TextLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyColor();
}

void TextLabel::applyColor()
{
    Palette::apply(*this, QPalette::WindowText, m_color);
}
