// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Palette.h"

#include <QLineEdit>

// A line of text that can be selected with the mouse and the keyboard and copied. One that is too
// long is shortened to be seen, but not where it is copied or read out.
class SelectableTextLine final : public QLineEdit
{
public:
    // The name is what the text is about, for screen readers.
    SelectableTextLine(const QString &text,
                       const QString &name,
                       const QFont &font,
                       SemanticColor color,
                       Qt::TextElideMode elideMode);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void applyColor();
    void paintShortened();

    SemanticColor m_color;
    Qt::TextElideMode m_elideMode;
};
