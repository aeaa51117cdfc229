// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

// A plain text view with editing shortcuts of its own: pasting takes plain text only, cutting from
// a read-only view copies.
class PasteEnabledTextView final : public QPlainTextEdit
{
public:
    PasteEnabledTextView();

    // Runs an editing shortcut, taking the focus to paste. Returns whether it was one of the
    // view's; other keys are left alone.
    bool performKeyEquivalent(const QKeyEvent &event);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void pastePlainText();
    void cutFromMenu();
};
