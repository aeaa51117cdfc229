// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PasteEnabledField.h"

#include <limits>

using namespace Qt::StringLiterals;

PasteEnabledField::PasteEnabledField()
{
    setMaxLength(std::numeric_limits<int>::max());
}

bool PasteEnabledField::runShortcut(Qt::Key key)
{
    if (key == Qt::Key_V)
        pasteText();
    else if (key == Qt::Key_A)
        selectAllText();
    else
        return false;
    return true;
}

std::vector<ContextMenuItem> PasteEnabledField::menuItems()
{
    return {{u"粘贴"_s, [this] { pasteText(); }}, {u"全选"_s, [this] { selectAllText(); }}};
}

void PasteEnabledField::selectAllText()
{
    setFocus(Qt::OtherFocusReason);
    selectAll();
}
