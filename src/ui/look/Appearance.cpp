// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Appearance.h"

#include "InterfaceFont.h"
#include "InterfaceStyle.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QPalette>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

// Of dialog buttons and text menus. Without the translations' package they stay English.
void installTranslation()
{
    auto *translator = new QTranslator(QCoreApplication::instance());
    const QLocale chinese(QLocale::Chinese, QLocale::China);
    if (translator->load(
            chinese, u"qtbase"_s, u"_"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

QPalette applicationPalette()
{
    const auto label = Palette::color(SemanticColor::Label);
    const auto faint = Palette::color(SemanticColor::Label, 0.35);
    QPalette palette(Palette::color(SemanticColor::ControlBackground),
                     Palette::color(SemanticColor::ContentBackground));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, label);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::Base, Palette::color(SemanticColor::TextBackground));
    palette.setColor(QPalette::AlternateBase, Palette::color(SemanticColor::ControlBackground));
    palette.setColor(QPalette::PlaceholderText, Palette::color(SemanticColor::TertiaryLabel));
    palette.setColor(QPalette::Highlight, Palette::color(SemanticColor::ControlAccent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, Palette::color(SemanticColor::Link));
    palette.setColor(QPalette::ToolTipBase, Palette::color(SemanticColor::WindowBackground));
    palette.setColor(QPalette::ToolTipText, label);
    return palette;
}

} // namespace

void Appearance::install()
{
    installTranslation();
    QApplication::setStyle(new InterfaceStyle);
    QApplication::setFont(interfaceFont(13));
    QApplication::setPalette(applicationPalette());
    QApplication::setWindowIcon(QIcon(u":/icons/Wrenfold.png"_s));
}

void Appearance::setColorScheme(ColorScheme scheme)
{
    if (scheme == Palette::scheme())
        return;
    Palette::setScheme(scheme);
    QApplication::setPalette(applicationPalette());
}
