// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "InterfaceFont.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {

QFont withChineseGlyphs(QFont font, int pixelSize, QFont::Weight weight)
{
    const auto chinese = u"Noto Sans CJK SC"_s;
    auto families = font.families();
    // Where only CJK faces are installed, the interface font itself is one of them.
    const bool isChineseOrKin = QFontInfo(font).family().contains("CJK"_L1);
    families.insert(isChineseOrKin ? 0 : families.size(), chinese);
    font.setFamilies(families);
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

} // namespace

QFont interfaceFont(int pixelSize, QFont::Weight weight)
{
    return withChineseGlyphs(QGuiApplication::font(), pixelSize, weight);
}

QFont monospacedFont(int pixelSize, QFont::Weight weight)
{
    return withChineseGlyphs(
        QFontDatabase::systemFont(QFontDatabase::FixedFont), pixelSize, weight);
}
