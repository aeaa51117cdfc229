// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ElidedText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// A layout ends lines at this separator only.
constexpr auto lineSeparator = QChar(QChar::LineSeparator);

QString withLineSeparators(QString text)
{
    text.replace("\r\n"_L1, "\n"_L1);
    for (const QChar lineBreak : {QChar(u'\n'), QChar(u'\r'), QChar(QChar::ParagraphSeparator)})
        text.replace(lineBreak, lineSeparator);
    return text;
}

} // namespace

ElidedText::ElidedText(const QString &text, const QFont &font, int maximumLines)
    : m_text(text)
    , m_maximumLines(maximumLines)
    , m_layout({}, font)
{
    QTextOption option(text.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout.setTextOption(option);
}

void ElidedText::setWidth(int width)
{
    if (width == m_width)
        return;
    m_width = width;
    for (auto length = likelyLength();; length *= 2) {
        m_isElisionDue = !layOut(withLineSeparators(m_text.left(length)));
        if (m_isElisionDue || length >= m_text.size())
            return;
    }
}

void ElidedText::setMaximumLines(int maximumLines)
{
    m_maximumLines = maximumLines;
    m_width = 0;
}

int ElidedText::height() const
{
    return int(std::ceil(m_layout.boundingRect().height()));
}

QStringList ElidedText::lines()
{
    elideEnd();
    QStringList lines;
    for (int i = 0; i < m_layout.lineCount(); ++i) {
        const auto line = m_layout.lineAt(i);
        lines.append(m_layout.text().mid(line.textStart(), line.textLength()).trimmed());
    }
    return lines;
}

void ElidedText::draw(QPainter &painter, QPointF topLeft)
{
    m_layout.setCacheEnabled(true); // not earlier: most texts are measured, but never seen
    elideEnd();
    m_layout.draw(&painter, topLeft);
}

// Characters that most likely fill the lines: Chinese ones are as wide as high, others half of it.
qsizetype ElidedText::likelyLength() const
{
    const auto squares =
        (qsizetype(m_maximumLines) + 1) * m_width / m_layout.font().pixelSize() + 1;
    const auto beginning = QStringView(m_text).left(squares);
    return squares
        + std::ranges::count_if(beginning, [](QChar character) { return character < u'\u2e80'; });
}

bool ElidedText::layOut(const QString &text)
{
    m_layout.setText(text);
    m_layout.beginLayout();
    qreal y = 0;
    qsizetype end = 0;
    while (m_layout.lineCount() < m_maximumLines) {
        auto line = m_layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(m_width);
        line.setPosition({0, y});
        y += line.height();
        end = line.textStart() + line.textLength();
    }
    m_layout.endLayout();
    return end == text.size();
}

void ElidedText::elideEnd()
{
    if (!m_isElisionDue)
        return;
    m_isElisionDue = false;
    const auto lastStart = m_layout.lineAt(m_layout.lineCount() - 1).textStart();
    auto end = m_layout.text().mid(lastStart);
    if (const auto lineBreak = end.indexOf(lineSeparator); lineBreak >= 0)
        end.replace(lineBreak, end.size() - lineBreak, u'…');
    // One less, or rounding could wrap it.
    end = QFontMetrics(m_layout.font()).elidedText(end, Qt::ElideRight, m_width - 1);
    layOut(m_layout.text().left(lastStart) + end);
}
