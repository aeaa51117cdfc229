// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

// A one-line field whose paste takes plain text at the caret, line breaks included, whatever its
// length.
class PasteEnabledTextField final : public QLineEdit
{
public:
    PasteEnabledTextField();

    // Runs an editing shortcut, taking the focus. Returns whether it was one of the field's; other
    // keys are left alone.
    bool performKeyEquivalent(const QKeyEvent &event);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void pasteText();
    void selectAllText();
};
