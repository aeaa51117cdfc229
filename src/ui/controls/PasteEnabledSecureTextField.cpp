// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PasteEnabledSecureTextField.h"

#include "ContextMenu.h"
#include "EditingShortcut.h"
#include "Pasteboard.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QKeyEvent>

#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct TextChange
{
    int position;
    QString removed;
    QString inserted;
};

std::optional<TextChange> textChange(const QAccessibleEvent &event)
{
    if (event.type() == QAccessible::TextInserted) {
        const auto &insertion = static_cast<const QAccessibleTextInsertEvent &>(event);
        return TextChange{insertion.changePosition(), {}, insertion.textInserted()};
    }
    if (event.type() == QAccessible::TextRemoved) {
        const auto &removal = static_cast<const QAccessibleTextRemoveEvent &>(event);
        return TextChange{removal.changePosition(), removal.textRemoved(), {}};
    }
    if (event.type() == QAccessible::TextUpdated) {
        const auto &update = static_cast<const QAccessibleTextUpdateEvent &>(event);
        return TextChange{update.changePosition(), update.textRemoved(), update.textInserted()};
    }
    return {};
}

QString dots(const QString &secret)
{
    return {secret.size(), u'•'};
}

// Qt itself tells in clear what changes in the field, to all who listen for screen readers.
void announce(QAccessibleEvent *event)
{
    const auto *field = dynamic_cast<PasteEnabledSecureTextField *>(event->object());
    const auto change = field ? textChange(*event) : std::nullopt;
    QAccessible::installUpdateHandler(nullptr);
    if (change) {
        QAccessibleTextUpdateEvent hidden(
            event->object(), change->position, dots(change->removed), dots(change->inserted));
        QAccessible::updateAccessibility(&hidden);
    } else {
        QAccessible::updateAccessibility(event);
    }
    QAccessible::installUpdateHandler(&announce);
}

} // namespace

PasteEnabledSecureTextField::PasteEnabledSecureTextField()
{
    QAccessible::installUpdateHandler(&announce);
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
