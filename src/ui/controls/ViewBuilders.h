// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Palette.h"

#include <QString>

#include <functional>

class ClosureButton;
class QFont;
class QHBoxLayout;
class QLayout;
class QScrollArea;
class QVBoxLayout;
class QWidget;
class TextLabel;

// The pieces every page is built from. What they return has no parent yet: the layout that takes it
// gives it one. Lengths are in logical pixels.
namespace ViewBuilders {

// Layouts without margins that put things below or beside each other.
[[nodiscard]] QVBoxLayout *makeStack(int spacing);
[[nodiscard]] QHBoxLayout *makeRow(int spacing);
// A page's heading: the title with the subtitle 8 below it.
[[nodiscard]] QWidget *makeTitleBlock(const QString &title, const QString &subtitle);
// A section's heading: the title with the subtitle 6 below it.
[[nodiscard]] QWidget *makeSectionHeader(const QString &title, const QString &subtitle);
// A card around one view or layout, with 22 at its sides and 20 above and below. Takes it over.
[[nodiscard]] QWidget *makePanel(QWidget *content);
[[nodiscard]] QWidget *makePanel(QLayout *content);
// A line of text in an interface font.
[[nodiscard]] TextLabel *makeLabel(const QString &text, const QFont &font, SemanticColor color);
// The same, as wide as it is given and as high as its lines.
[[nodiscard]] TextLabel *
makeWrappingLabel(const QString &text, const QFont &font, SemanticColor color);
// Explaining text: 13, secondary, wrapping.
[[nodiscard]] TextLabel *makeBodyLabel(const QString &text);
// Underlined text that runs the action when clicked.
[[nodiscard]] ClosureButton *makeLinkButton(const QString &title, std::function<void()> action);
// A disc of 36 by 36 in the pale accent colour with a symbol on it. Not for screen readers.
[[nodiscard]] QWidget *makeSymbolBadge(const QString &symbolName);
// A vertical scroller without border and background. The document is as wide as the view; it is
// taken over.
[[nodiscard]] QScrollArea *makeScrollView(QWidget *document);
// The same for the layout of a whole page: the scroller stands in its right margin, so that cards
// end at the same place whether there is something to scroll or not.
[[nodiscard]] QScrollArea *makePageScrollView(QLayout *page);

} // namespace ViewBuilders
