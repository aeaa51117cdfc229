// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Palette.h"

#include <QWidget>

namespace {

struct ColorPair
{
    QColor light;
    QColor dark;
};

QColor grey(double white, double alpha = 1)
{
    return QColor::fromRgbF(float(white), float(white), float(white), float(alpha));
}

ColorScheme &currentScheme()
{
    static auto scheme = ColorScheme::Light;
    return scheme;
}

// Text colours keep a contrast of at least 4.5 to 1 on the backgrounds they stand on, outlines one
// of 3 to 1.
ColorPair colorPair(SemanticColor color)
{
    switch (color) {
    case SemanticColor::Label:
        return {grey(0, 0.87), grey(1, 0.87)};
    case SemanticColor::SecondaryLabel:
        return {grey(0, 0.62), grey(1, 0.62)};
    case SemanticColor::TertiaryLabel:
        return {grey(0, 0.56), grey(1, 0.52)};
    case SemanticColor::Link:
        return {QColor(0x00, 0x58, 0xC7), QColor(0x5A, 0xA9, 0xFF)};
    case SemanticColor::ControlAccent:
        return {QColor(0x0A, 0x6C, 0xE0), QColor(0x3B, 0x93, 0xFF)};
    case SemanticColor::Success:
        return {QColor(0x18, 0x7A, 0x33), QColor(0x32, 0xD1, 0x58)};
    case SemanticColor::Failure:
        return {QColor(0xC9, 0x1A, 0x1A), QColor(0xFF, 0x6B, 0x61)};
    case SemanticColor::ContentBackground:
        return {grey(0.965), grey(0.155)};
    case SemanticColor::WindowBackground:
        return {grey(0.925), grey(0.195)};
    case SemanticColor::TextBackground:
        return {grey(1), grey(0.118)};
    case SemanticColor::ControlBackground:
        return {grey(0.98), grey(0.21)};
    case SemanticColor::UnemphasizedSelection:
        return {grey(0.86), grey(0.275)};
    case SemanticColor::Hover:
        return {grey(0.94), grey(0.22)};
    case SemanticColor::Separator:
        return {grey(0, 0.12), grey(1, 0.14)};
    case SemanticColor::ControlOutline:
        return {grey(0, 0.46), grey(1, 0.44)};
    case SemanticColor::PrimaryFill:
        return {QColor(0x0A, 0x6C, 0xE0), QColor(0x0A, 0x6C, 0xE0)};
    }
    Q_UNREACHABLE();
}

} // namespace

ColorScheme Palette::scheme()
{
    return currentScheme();
}

void Palette::setScheme(ColorScheme scheme)
{
    currentScheme() = scheme;
}

QColor Palette::color(SemanticColor color)
{
    const auto pair = colorPair(color);
    return currentScheme() == ColorScheme::Dark ? pair.dark : pair.light;
}

QColor Palette::color(SemanticColor color, double alpha)
{
    auto result = Palette::color(color);
    result.setAlphaF(float(alpha));
    return result;
}

void Palette::apply(QWidget &widget, QPalette::ColorRole role, SemanticColor color)
{
    const auto wanted = Palette::color(color);
    auto palette = widget.palette();
    if (palette.color(role) == wanted)
        return;
    palette.setColor(role, wanted);
    widget.setPalette(palette);
}
