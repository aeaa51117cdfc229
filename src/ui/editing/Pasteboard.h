// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

// The clipboard's content as plain text; absent when it holds none.
[[nodiscard]] std::optional<QString> plainTextFromPasteboard();
