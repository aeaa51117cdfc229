// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

// A window of the application: it has a title, and can be closed and resized, but not minimised.
class RegularWindow : public QWidget
{
public:
    explicit RegularWindow(const QString &title);

    // Gives back what a window that is closed was drawn on, until it is shown again.
    void releaseSurface() { destroy(); }
    // Without its frame, and as it will be again when it is no longer maximised.
    [[nodiscard]] QSize ownSize() const;
    // Moves the window into the middle of its screen.
    void center();
    // Shows the window in front of the others and gives it the keyboard focus, also when it is
    // minimised or the desktop has hidden it.
    void bringToFront();

protected:
    // Gets the keys that the focused control has left alone: Return presses a button, Escape and
    // Control + W close the window.
    void keyPressEvent(QKeyEvent *event) override;
};
