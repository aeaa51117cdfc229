// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

// Flat controls with round corners in the interface's colours, on top of Qt's own style.
class InterfaceStyle final : public QProxyStyle
{
public:
    InterfaceStyle();

    void drawPrimitive(PrimitiveElement element,
                       const QStyleOption *option,
                       QPainter *painter,
                       const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control,
                            const QStyleOptionComplex *option,
                            QPainter *painter,
                            const QWidget *widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control,
                                       const QStyleOptionComplex *option,
                                       SubControl part,
                                       const QWidget *widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element,
                                       const QStyleOption *option,
                                       const QWidget *widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric,
                                  const QStyleOption *option,
                                  const QWidget *widget) const override;
};
