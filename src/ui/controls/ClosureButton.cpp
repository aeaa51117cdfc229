// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ClosureButton.h"

#include "FocusFrame.h"
#include "InterfaceFont.h"
#include "Palette.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace {

// Of a link: room for the focus frame, but on the left, where it stands flush with what is above.
constexpr int linkMargin = 2;

} // namespace

ClosureButton::ClosureButton(const QString &title, Style style, std::function<void()> action)
    : QPushButton(title)
    , onClick(std::move(action))
    , m_style(style)
{
    setAutoDefault(false);
    if (style == Style::Link) {
        auto font = interfaceFont(12);
        font.setUnderline(true);
        setFont(font);
        setCursor(Qt::PointingHandCursor);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    connect(this, &QPushButton::clicked, this, [this] { onClick(); });
}

void ClosureButton::setDead(bool isDead)
{
    m_isDead = isDead;
    update();
}

void ClosureButton::initStyleOption(QStyleOptionButton *option) const
{
    QPushButton::initStyleOption(option);
    if (m_style == Style::Primary && !m_isDead) {
        option->palette.setColor(QPalette::Button, Palette::color(SemanticColor::PrimaryFill));
        option->palette.setColor(QPalette::ButtonText, Qt::white);
    }
    if (m_isDead) {
        option->state &= ~(QStyle::State_Enabled | QStyle::State_MouseOver);
        option->palette.setCurrentColorGroup(QPalette::Disabled);
    }
}

QSize ClosureButton::sizeHint() const
{
    if (m_style != Style::Link)
        return QPushButton::sizeHint();
    return fontMetrics().size(Qt::TextSingleLine, text()) + QSize(linkMargin, 2 * linkMargin);
}

void ClosureButton::paintEvent(QPaintEvent *event)
{
    if (m_style == Style::Link)
        paintLink();
    else
        QPushButton::paintEvent(event);
}

void ClosureButton::paintLink()
{
    QPainter painter(this);
    painter.setPen(Palette::color(SemanticColor::Link));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, text());
    drawFocusFrame(painter, *this);
}
