// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PasteEnabledSecureTextField.h"

#include "ContextMenu.h"
#include "EditingShortcut.h"
#include "Pasteboard.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <limits>

using namespace Qt::StringLiterals;

PasteEnabledSecureTextField::PasteEnabledSecureTextField()
{
    setEchoMode(QLineEdit::Password);
    setMaxLength(std::numeric_limits<int>::max());
}

bool PasteEnabledSecureTextField::performKeyEquivalent(const QKeyEvent &event)
{
    const auto key = editingShortcut(event);
    if (!hasFocus() || (key != Qt::Key_V && key != Qt::Key_A))
        return false;
    if (key == Qt::Key_V)
        pasteText();
    else
        selectAll();
    return true;
}

void PasteEnabledSecureTextField::keyPressEvent(QKeyEvent *event)
{
    if (!performKeyEquivalent(*event))
        QLineEdit::keyPressEvent(event);
}

void PasteEnabledSecureTextField::contextMenuEvent(QContextMenuEvent *event)
{
    popUpContextMenu(
        *this,
        event->globalPos(),
        {{u"粘贴"_s, [this] { pasteText(); }}, {u"全选"_s, [this] { selectAllText(); }}});
}

void PasteEnabledSecureTextField::pasteText()
{
    setFocus(Qt::OtherFocusReason);
    if (const auto text = plainTextFromPasteboard())
        setText(*text);
}

void PasteEnabledSecureTextField::selectAllText()
{
    setFocus(Qt::OtherFocusReason);
    selectAll();
}
