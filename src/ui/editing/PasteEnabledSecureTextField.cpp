// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PasteEnabledSecureTextField.h"

#include "Pasteboard.h"
#include "SecretAnnouncements.h"

PasteEnabledSecureTextField::PasteEnabledSecureTextField()
{
    SecretAnnouncements::hide();
    setEchoMode(QLineEdit::Password);
}

bool PasteEnabledSecureTextField::runShortcut(Qt::Key key)
{
    return hasFocus() && PasteEnabledField::runShortcut(key);
}

void PasteEnabledSecureTextField::pasteText()
{
    setFocus(Qt::OtherFocusReason);
    if (const auto text = plainTextFromPasteboard())
        setText(*text);
}
