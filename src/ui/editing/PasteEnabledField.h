// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PasteEnabled.h"

#include <QLineEdit>

// What the one-line fields have in common: they take a text of any length, and their shortcuts and
// their menu paste and select all.
class PasteEnabledField : public PasteEnabled<QLineEdit>
{
protected:
    PasteEnabledField();

    bool runShortcut(Qt::Key key) override;
    [[nodiscard]] std::vector<ContextMenuItem> menuItems() override;
    [[nodiscard]] bool canUndo() const override { return isUndoAvailable(); }
    virtual void pasteText() = 0;

private:
    void selectAllText();
};
