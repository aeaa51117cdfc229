// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "EditingShortcut.h"

#include <QKeyEvent>

namespace {

// Caps Lock in the state field of X11 key events, which is what the native modifiers are; Qt's own
// modifiers leave it out.
constexpr quint32 nativeCapsLock = 0x2;

} // namespace

std::optional<Qt::Key> editingShortcut(const QKeyEvent &event)
{
    const bool qualifies = event.type() == QEvent::KeyPress
        && event.modifiers() == Qt::ControlModifier
        && (event.nativeModifiers() & nativeCapsLock) == 0;
    return qualifies ? std::optional(Qt::Key(event.key())) : std::nullopt;
}
