// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictionaryChipButton.h"

#include "InterfaceFont.h"
#include "Palette.h"

#include <QPainter>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int chipHeight = 30;
constexpr int sideMargins = 24;
constexpr int minWidth = 58;
constexpr int maxWidth = 220;
constexpr qreal cornerRadius = 15;

// A term that looks like markup is shown as it is written.
QString toolTipText(const QString &text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace

DictionaryChipButton::DictionaryChipButton(const QString &term,
                                           std::function<void(const QString &)> onDelete)
    : m_onDelete(std::move(onDelete))
    , m_term(term)
{
    const auto toolTip = u"删除 "_s + term;
    setToolTip(toolTipText(toolTip));
    setAccessibleName(u"词条 "_s + term);
    setAccessibleDescription(toolTip);
    setFont(interfaceFont(13, QFont::Medium));
    // A click leaves the focus where the user is typing.
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);

    const auto title = term + u"  ×"_s;
    const auto titleWidth = fontMetrics().horizontalAdvance(title);
    m_chipSize = {std::clamp(titleWidth + sideMargins, minWidth, maxWidth), chipHeight};
    m_shownTitle = fontMetrics().elidedText(title, Qt::ElideRight, maxWidth - sideMargins);
    connect(this, &QAbstractButton::clicked, this, [this] { m_onDelete(m_term); });
}

const QString &DictionaryChipButton::term() const
{
    return m_term;
}

QSize DictionaryChipButton::chipSize() const
{
    return m_chipSize;
}

QSize DictionaryChipButton::sizeHint() const
{
    return m_chipSize;
}

void DictionaryChipButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintPill(painter);
    painter.setPen(Palette::color(SemanticColor::Label));
    // The end of a term that is written from right to left, and the cross, are at its left.
    painter.setLayoutDirection(m_term.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, m_shownTitle);
}

void DictionaryChipButton::paintPill(QPainter &painter) const
{
    const auto border = hasFocus() ? QPen(Palette::color(SemanticColor::ControlAccent), 2)
                                   : QPen(Palette::color(SemanticColor::Separator, 0.35), 1);
    const auto inset = border.widthF() / 2;
    const auto pill = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(border);
    painter.setBrush(Palette::color(SemanticColor::ControlBackground, 0.78));
    painter.drawRoundedRect(pill, cornerRadius, cornerRadius);
    if (underMouse() || isDown()) {
        painter.setBrush(Palette::color(SemanticColor::Label, isDown() ? 0.16 : 0.08));
        painter.drawRoundedRect(pill, cornerRadius, cornerRadius);
    }
}
