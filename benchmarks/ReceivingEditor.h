// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clock.h"

#include <QPlainTextEdit>

#include <optional>

// An editor that has the focus and notes when text arrives in it.
class ReceivingEditor final : public QPlainTextEdit
{
    Q_OBJECT
public:
    // Returns once the window has the focus. Throws std::runtime_error.
    ReceivingEditor();

    // Waits until text arrives, empties the editor and returns the moment it came. Throws
    // std::runtime_error when it is not the expected text or none comes.
    Instant waitForText(const QString &expected);

private:
    std::optional<Instant> m_arrivedAt;
};
