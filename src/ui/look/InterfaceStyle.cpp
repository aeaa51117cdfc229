// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "InterfaceStyle.h"

#include "Palette.h"
#include "ThinScrollBar.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QStyleOption>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal controlRadius = 6;
constexpr qreal focusWidth = 2;
// Between a field's border and its text, besides what Qt keeps free.
constexpr int fieldPadding = 4;
// Of a framed view: keeps its square content out of the round corners.
constexpr int viewFrameWidth = 4;

bool has(const QStyleOption &option, QStyle::StateFlag state)
{
    return option.state.testFlag(state);
}

void drawRoundedRect(QPainter &painter, const QRectF &rect, const QPen &pen, const QBrush &brush)
{
    const auto inset = pen.widthF() / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.drawRoundedRect(
        rect.adjusted(inset, inset, -inset, -inset), controlRadius, controlRadius);
    painter.restore();
}

bool hasFrame(const QStyleOption &option)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(&option);
    return frame && frame->lineWidth > 0;
}

QBrush fieldBackground(const QStyleOption &option)
{
    return has(option, QStyle::State_ReadOnly) ? option.palette.alternateBase()
                                               : option.palette.base();
}

// What a framed view stands on, so that its frame is filled like its content.
QBrush viewBackground(const QWidget *widget)
{
    const auto *view = qobject_cast<const QAbstractScrollArea *>(widget);
    return view ? view->palette().brush(view->viewport()->backgroundRole()) : QBrush();
}

// Of a field where text is typed the focus always shows, of a button while the user moves it by
// keyboard.
QPen outline(const QStyleOption &option, QStyle::State shownWith = QStyle::State_HasFocus)
{
    if ((option.state & shownWith) == shownWith)
        return {Palette::color(SemanticColor::ControlAccent), focusWidth};
    return {Palette::color(SemanticColor::ControlOutline), 1};
}

void drawButton(QPainter &painter, const QStyleOption &option)
{
    constexpr auto keyboardFocus = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    drawRoundedRect(painter, option.rect, outline(option, keyboardFocus), option.palette.button());
    const bool isEnabled = has(option, QStyle::State_Enabled);
    if (isEnabled && has(option, QStyle::State_Sunken))
        drawRoundedRect(
            painter, option.rect, Qt::NoPen, Palette::color(SemanticColor::Label, 0.12));
    else if (isEnabled && has(option, QStyle::State_MouseOver))
        drawRoundedRect(
            painter, option.rect, Qt::NoPen, Palette::color(SemanticColor::Label, 0.05));
}

void drawChevron(QPainter &painter, const QRectF &rect)
{
    const auto centre = rect.center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Palette::color(SemanticColor::SecondaryLabel),
                        1.5,
                        Qt::SolidLine,
                        Qt::RoundCap,
                        Qt::RoundJoin));
    const std::array<QPointF, 3> points{
        centre + QPointF(-4, -2), centre + QPointF(0, 2), centre + QPointF(4, -2)};
    painter.drawPolyline(points.data(), int(points.size()));
    painter.restore();
}

} // namespace

InterfaceStyle::InterfaceStyle()
    : QProxyStyle(u"Fusion"_s)
{}

void InterfaceStyle::drawPrimitive(PrimitiveElement element,
                                   const QStyleOption *option,
                                   QPainter *painter,
                                   const QWidget *widget) const
{
    switch (element) {
    case PE_PanelButtonCommand:
        drawButton(*painter, *option);
        return;
    case PE_FrameFocusRect:
        drawRoundedRect(*painter,
                        option->rect,
                        QPen(Palette::color(SemanticColor::ControlAccent), focusWidth),
                        Qt::NoBrush);
        return;
    case PE_PanelLineEdit:
        if (hasFrame(*option))
            drawRoundedRect(*painter, option->rect, outline(*option), fieldBackground(*option));
        return;
    case PE_Frame:
        drawRoundedRect(*painter, option->rect, outline(*option), viewBackground(widget));
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void InterfaceStyle::drawComplexControl(ComplexControl control,
                                        const QStyleOptionComplex *option,
                                        QPainter *painter,
                                        const QWidget *widget) const
{
    switch (control) {
    case CC_ComboBox:
        drawButton(*painter, *option);
        drawChevron(*painter, subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget));
        return;
    case CC_ScrollBar:
        if (const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option))
            ThinScrollBar::draw(*painter, *slider);
        return;
    default:
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

QRect InterfaceStyle::subControlRect(ComplexControl control,
                                     const QStyleOptionComplex *option,
                                     SubControl part,
                                     const QWidget *widget) const
{
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !slider)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const auto thumb = ThinScrollBar::thumbRect(*slider);
    const auto &track = option->rect;
    const bool isHorizontal = slider->orientation == Qt::Horizontal;
    switch (part) {
    case SC_ScrollBarSlider:
        return thumb;
    case SC_ScrollBarGroove:
        return track;
    case SC_ScrollBarSubPage:
        return isHorizontal ? QRect(track.topLeft(), thumb.bottomLeft() - QPoint(1, 0))
                            : QRect(track.topLeft(), thumb.topRight() - QPoint(0, 1));
    case SC_ScrollBarAddPage:
        return isHorizontal ? QRect(thumb.topRight() + QPoint(1, 0), track.bottomRight())
                            : QRect(thumb.bottomLeft() + QPoint(0, 1), track.bottomRight());
    default:
        return {}; // no arrows
    }
}

QRect InterfaceStyle::subElementRect(SubElement element,
                                     const QStyleOption *option,
                                     const QWidget *widget) const
{
    const auto rect = QProxyStyle::subElementRect(element, option, widget);
    if (element == SE_LineEditContents && hasFrame(*option))
        return rect.adjusted(fieldPadding, 0, -fieldPadding, 0);
    return rect;
}

int InterfaceStyle::pixelMetric(PixelMetric metric,
                                const QStyleOption *option,
                                const QWidget *widget) const
{
    // A pressed button shows it by its colour.
    if (metric == PM_ButtonShiftHorizontal || metric == PM_ButtonShiftVertical)
        return 0;
    if (metric == PM_ScrollBarExtent)
        return ThinScrollBar::extent;
    if (metric == PM_DefaultFrameWidth && qobject_cast<const QAbstractScrollArea *>(widget))
        return viewFrameWidth;
    return QProxyStyle::pixelMetric(metric, option, widget);
}
