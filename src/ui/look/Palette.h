// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ColorScheme.h"

#include <QColor>
#include <QPalette>

class QWidget;

// What a colour is for. Each scheme has its own value.
enum class SemanticColor {
    Label,
    SecondaryLabel,
    TertiaryLabel,
    Link,
    ControlAccent,
    Success,
    Failure,
    // Behind pages.
    ContentBackground,
    // Behind the sidebar.
    WindowBackground,
    // Behind text that can be edited.
    TextBackground,
    // Behind controls and text that cannot be edited.
    ControlBackground,
    // Behind the selected item of a list that does not have the keyboard focus.
    UnemphasizedSelection,
    // Behind the row under the pointer.
    Hover,
    Separator,
    // Around fields and buttons.
    ControlOutline,
    // Behind the white title of a card's primary button.
    PrimaryFill,
};

// The colours of the interface in the scheme in force. Main thread only.
namespace Palette {

[[nodiscard]] ColorScheme scheme();
// Puts a scheme in force for what is painted from now on; applyColorScheme() also repaints.
void setScheme(ColorScheme scheme);

[[nodiscard]] QColor color(SemanticColor color);
// The colour with another opacity, from 0 (invisible) to 1.
[[nodiscard]] QColor color(SemanticColor color, double alpha);

// Gives the widget the colour for this role. To be called again when the widget's palette changes,
// and so harmless when it has the colour already.
void apply(QWidget &widget, QPalette::ColorRole role, SemanticColor color);

} // namespace Palette
