// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PasteEnabledTextField.h"

#include "ContextMenu.h"
#include "EditingShortcut.h"
#include "Pasteboard.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>

#include <limits>

using namespace Qt::StringLiterals;

PasteEnabledTextField::PasteEnabledTextField()
{
    setMaxLength(std::numeric_limits<int>::max());
}

bool PasteEnabledTextField::performKeyEquivalent(const QKeyEvent &event)
{
    const auto key = editingShortcut(event);
    if (key != Qt::Key_V && key != Qt::Key_A)
        return false;
    if (key == Qt::Key_V)
        pasteText();
    else
        selectAllText();
    return true;
}

void PasteEnabledTextField::keyPressEvent(QKeyEvent *event)
{
    if (!performKeyEquivalent(*event))
        QLineEdit::keyPressEvent(event);
}

void PasteEnabledTextField::contextMenuEvent(QContextMenuEvent *event)
{
    popUpContextMenu(
        *this,
        event->globalPos(),
        {{u"粘贴"_s, [this] { pasteText(); }}, {u"全选"_s, [this] { selectAllText(); }}});
}

void PasteEnabledTextField::pasteText()
{
    if (isReadOnly()) {
        QApplication::beep();
        return;
    }
    setFocus(Qt::OtherFocusReason);
    if (const auto text = plainTextFromPasteboard())
        insert(*text);
    else
        QApplication::beep();
}

void PasteEnabledTextField::selectAllText()
{
    setFocus(Qt::OtherFocusReason);
    selectAll();
}
