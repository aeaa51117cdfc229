// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PasteEnabledField.h"

// A field for a secret: what is typed is shown as dots, to screen readers too. Pasting replaces its
// whole value. It runs its shortcuts only while it is edited.
class PasteEnabledSecureTextField final : public PasteEnabledField
{
public:
    PasteEnabledSecureTextField();

protected:
    bool runShortcut(Qt::Key key) override;
    void pasteText() override;
};
