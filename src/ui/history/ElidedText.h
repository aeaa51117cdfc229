// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTextLayout>

// A text that is wrapped and cut to a number of lines, the last of which then ends in "…". However
// long the text is, only as much of it is laid out as these lines can hold.
class ElidedText final
{
public:
    ElidedText(const QString &text, const QFont &font, int maximumLines);

    // Lays the text out in lines of this width, in logical pixels and at least 1. To be called
    // before the rest.
    void setWidth(int width);
    // Takes effect with the next width, which must follow.
    void setMaximumLines(int maximumLines);
    // In logical pixels.
    [[nodiscard]] int height() const;
    // The lines as they are drawn.
    [[nodiscard]] QStringList lines();
    // Draws the lines in the painter's pen.
    void draw(QPainter &painter, QPointF topLeft);

private:
    [[nodiscard]] qsizetype likelyLength() const;
    // Returns whether all of the text has found room.
    bool layOut(const QString &text);
    void elideEnd();

    QString m_text;
    int m_maximumLines = 0;
    int m_width = 0;
    QTextLayout m_layout;
    // Put off until it is seen: it does not change the height.
    bool m_isElisionDue = false;
};
