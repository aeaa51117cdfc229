// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PasteEnabled.h"

#include <QPlainTextEdit>

// A plain text view with editing shortcuts of its own: pasting takes plain text only, cutting from
// a read-only view copies.
class PasteEnabledTextView final : public PasteEnabled<QPlainTextEdit>
{
public:
    PasteEnabledTextView();

    // Text that cannot be edited can be selected, by keyboard too, and stands on another ground.
    void setEditable(bool isEditable);

protected:
    bool runShortcut(Qt::Key key) override;
    [[nodiscard]] std::vector<ContextMenuItem> menuItems() override;
    [[nodiscard]] bool canUndo() const override { return document()->isUndoAvailable(); }
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    void pastePlainText();
    void cutFromMenu();
};
