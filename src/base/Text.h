// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

// The number of user-perceived characters (extended grapheme clusters) in the text.
[[nodiscard]] qsizetype characterCount(QStringView text);

// The first `count` user-perceived characters; the whole text when it has no more.
[[nodiscard]] QString firstCharacters(const QString &text, qsizetype count);

// A fresh random UUID in its canonical form: 36 characters, upper case, hyphens, no braces.
[[nodiscard]] QString newUuidText();

// "true" or "false", as log lines write flags.
[[nodiscard]] QLatin1StringView flagText(bool flag);
