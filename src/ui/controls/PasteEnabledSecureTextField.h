// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

// A field for a secret: what is typed is shown as dots. Pasting replaces its whole value.
class PasteEnabledSecureTextField final : public QLineEdit
{
public:
    PasteEnabledSecureTextField();

    // Runs an editing shortcut while the field is edited. Returns whether it was one of the
    // field's; other keys are left alone.
    bool performKeyEquivalent(const QKeyEvent &event);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void pasteText();
    void selectAllText();
};
