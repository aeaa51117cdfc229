// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

class QPainter;
class QWidget;

// Draws the frame that says that the widget has the keyboard focus, while it has and the user moves
// it by keyboard.
void drawFocusFrame(QPainter &painter, const QWidget &widget);
