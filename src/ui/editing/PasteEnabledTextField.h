// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PasteEnabledField.h"

// A one-line field whose paste takes plain text at the caret, line breaks included, whatever its
// length. Of a text of more than 10,000 UTF-16 units only the two ends are shown, with "︙" for
// what is between them, which can be deleted like any other character.
class PasteEnabledTextField final : public PasteEnabledField
{
public:
    PasteEnabledTextField();

    // The whole text, what is not shown included.
    [[nodiscard]] QString text() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void pasteText() override;

private:
    [[nodiscard]] QString withOmission(QString shown) const;
    void shorten();

    QString m_omission;
};
