// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "InterfaceFont.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {

QFont withChineseGlyphs(QFont font, const QString &chinese, int pixelSize, QFont::Weight weight)
{
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
    return withChineseGlyphs(QGuiApplication::font(), u"Noto Sans CJK SC"_s, pixelSize, weight);
}

QFont monospacedFont(int pixelSize, QFont::Weight weight)
{
    auto font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    // In a list of families a name that only stands for one, as "monospace" does, is passed over.
    font.setFamilies({QFontInfo(font).family()});
    return withChineseGlyphs(font, u"Noto Sans Mono CJK SC"_s, pixelSize, weight);
}
