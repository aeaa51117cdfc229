// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include <optional>

class QKeyEvent;

// The key held together with Control, and with nothing else: Shift, Alt, Super or Caps Lock make it
// another shortcut. Absent when the event is none, or no key press.
[[nodiscard]] std::optional<Qt::Key> editingShortcut(const QKeyEvent &event);
