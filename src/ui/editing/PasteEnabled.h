// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "EditingInput.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

// One of Qt's text inputs as an editing input.
template<typename QtInput>
class PasteEnabled : public QtInput, public EditingInput
{
protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        // What cannot undo leaves that to the window.
        if (event->matches(QKeySequence::Undo) && !canUndo())
            event->ignore();
        else if (!performKeyEquivalent(*event))
            QtInput::keyPressEvent(event);
    }

    void contextMenuEvent(QContextMenuEvent *event) override
    {
        popUpContextMenu(*this, event->globalPos(), menuItems());
    }
};
