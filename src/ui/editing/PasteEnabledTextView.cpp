// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PasteEnabledTextView.h"

#include "Pasteboard.h"

#include <QApplication>
#include <QInputMethodEvent>

using namespace Qt::StringLiterals;

PasteEnabledTextView::PasteEnabledTextView()
{
    setTabChangesFocus(true);
}

void PasteEnabledTextView::setEditable(bool isEditable)
{
    const auto interaction = isEditable ? Qt::TextInteractionFlags(Qt::TextEditorInteraction)
                                        : Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;
    if (textInteractionFlags() != interaction)
        setTextInteractionFlags(interaction);
    const auto background = isEditable ? QPalette::Base : QPalette::AlternateBase;
    if (viewport()->backgroundRole() != background)
        viewport()->setBackgroundRole(background);
    setAttribute(Qt::WA_InputMethodEnabled, isEditable);
}

// Qt lets input methods write wherever text can be selected.
void PasteEnabledTextView::inputMethodEvent(QInputMethodEvent *event)
{
    if (isReadOnly())
        event->ignore();
    else
        QPlainTextEdit::inputMethodEvent(event);
}

bool PasteEnabledTextView::runShortcut(Qt::Key key)
{
    if (key == Qt::Key_V)
        pastePlainText();
    else if (key == Qt::Key_A)
        selectAll();
    else if (key == Qt::Key_C || (key == Qt::Key_X && isReadOnly()))
        copy();
    else if (key == Qt::Key_X)
        cut();
    else
        return false;
    return true;
}

std::vector<ContextMenuItem> PasteEnabledTextView::menuItems()
{
    return {{u"剪切"_s, [this] { cutFromMenu(); }},
            {u"复制"_s, [this] { copy(); }},
            {u"粘贴"_s, [this] { pastePlainText(); }},
            {},
            {u"全选"_s, [this] { selectAll(); }}};
}

void PasteEnabledTextView::pastePlainText()
{
    if (isReadOnly()) {
        QApplication::beep();
        return;
    }
    setFocus(Qt::OtherFocusReason);
    const auto text = plainTextFromPasteboard();
    if (!text) {
        QApplication::beep();
        return;
    }
    insertPlainText(*text);
    ensureCursorVisible();
}

void PasteEnabledTextView::cutFromMenu()
{
    if (isReadOnly())
        QApplication::beep();
    else
        cut();
}
