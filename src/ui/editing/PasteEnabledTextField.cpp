// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PasteEnabledTextField.h"

#include "Pasteboard.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A line edit lays out and draws the whole of its text at every blink of the caret, which takes it
// a second for a megabyte.
constexpr qsizetype maxShown = 10'000;
constexpr qsizetype shownEnd = 1'000;
constexpr auto omissionMark = u'︙';

} // namespace

PasteEnabledTextField::PasteEnabledTextField()
{
    connect(this, &QLineEdit::textChanged, this, &PasteEnabledTextField::shorten);
}

QString PasteEnabledTextField::text() const
{
    return withOmission(QLineEdit::text());
}

void PasteEnabledTextField::keyPressEvent(QKeyEvent *event)
{
    const auto selected = withOmission(selectedText());
    PasteEnabledField::keyPressEvent(event);
    if (!selected.isEmpty()
        && (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::Cut)))
        QGuiApplication::clipboard()->setText(selected);
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

QString PasteEnabledTextField::withOmission(QString shown) const
{
    const auto position = m_omission.isEmpty() ? -1 : shown.indexOf(omissionMark);
    return position < 0 ? shown : shown.replace(position, 1, m_omission);
}

void PasteEnabledTextField::shorten()
{
    const auto shown = QLineEdit::text();
    if (shown.size() > maxShown) {
        const auto whole = withOmission(shown);
        const auto afterCaret = std::min(shown.size() - cursorPosition(), shownEnd);
        m_omission = whole.mid(shownEnd, whole.size() - 2 * shownEnd);
        const QSignalBlocker blocker(this);
        setText(whole.left(shownEnd) + omissionMark + whole.right(shownEnd));
        setCursorPosition(int(2 * shownEnd + 1 - afterCaret));
    } else if (!isUndoAvailable() && !isRedoAvailable()) {
        // The text was set, not edited.
        m_omission.clear();
    }
}
