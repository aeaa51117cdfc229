// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Palette.h"

#include <QLabel>

// A label in one of the interface's colours, which it keeps when the colour scheme changes.
class TextLabel final : public QLabel
{
public:
    TextLabel(const QString &text, const QFont &font, SemanticColor color);

    void setColor(SemanticColor color);

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyColor();

    SemanticColor m_color;
};
