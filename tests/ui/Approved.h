// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <gtest/gtest.h>

// Whether the text is that of approved/NAME.txt, to the letter; a failure shows the difference.
// With WRENFOLD_APPROVE in the environment (scripts/approve) the file is written instead.
[[nodiscard]] testing::AssertionResult isApproved(const QString &name, const QString &text);

// Makes what windows look like the same on every machine: font, language, time zone, caret.
void standardizeLook();
