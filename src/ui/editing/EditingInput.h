// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ContextMenu.h"
#include "EditingShortcut.h"

// A text input that has editing shortcuts and a context menu of its own.
class EditingInput
{
public:
    EditingInput() = default;
    virtual ~EditingInput() = default;
    EditingInput(const EditingInput &) = delete;
    EditingInput &operator=(const EditingInput &) = delete;

    // Runs an editing shortcut, which may take the focus. Returns whether it was one of the
    // input's; other keys are left alone.
    bool performKeyEquivalent(const QKeyEvent &event)
    {
        const auto key = editingShortcut(event);
        return key && runShortcut(*key);
    }

protected:
    // Returns whether the key, held with Control, is one of the input's.
    virtual bool runShortcut(Qt::Key key) = 0;
    [[nodiscard]] virtual std::vector<ContextMenuItem> menuItems() = 0;
    [[nodiscard]] virtual bool canUndo() const = 0;
};
