// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "KdeKey.h"

#include "KeyCodes.h"
#include "ModifierKeys.h"
#include "VirtualKey.h"

#include <QKeySequence>

#include <algorithm>

#include <linux/input-event-codes.h>

namespace {

constexpr std::pair<quint32, Qt::Key> silentKeys[] = {{KEY_ESC, Qt::Key_Escape},
                                                      {KEY_SPACE, Qt::Key_Space},
                                                      {KEY_TAB, Qt::Key_Tab},
                                                      {KEY_ENTER, Qt::Key_Return},
                                                      {KEY_BACKSPACE, Qt::Key_Backspace},
                                                      {KEY_DELETE, Qt::Key_Delete},
                                                      {KEY_INSERT, Qt::Key_Insert},
                                                      {KEY_HOME, Qt::Key_Home},
                                                      {KEY_END, Qt::Key_End},
                                                      {KEY_PAGEUP, Qt::Key_PageUp},
                                                      {KEY_PAGEDOWN, Qt::Key_PageDown},
                                                      {KEY_LEFT, Qt::Key_Left},
                                                      {KEY_RIGHT, Qt::Key_Right},
                                                      {KEY_UP, Qt::Key_Up},
                                                      {KEY_DOWN, Qt::Key_Down},
                                                      {KEY_SYSRQ, Qt::Key_Print},
                                                      {KEY_SCROLLLOCK, Qt::Key_ScrollLock},
                                                      {KEY_PAUSE, Qt::Key_Pause},
                                                      {KEY_COMPOSE, Qt::Key_Menu},
                                                      {KEY_MUTE, Qt::Key_VolumeMute},
                                                      {KEY_VOLUMEUP, Qt::Key_VolumeUp},
                                                      {KEY_VOLUMEDOWN, Qt::Key_VolumeDown}};

constexpr std::pair<quint32, int> modifierBits[] = {{StoredModifier::command, Qt::MetaModifier},
                                                    {StoredModifier::shift, Qt::ShiftModifier},
                                                    {StoredModifier::option, Qt::AltModifier},
                                                    {StoredModifier::control, Qt::ControlModifier}};

// The service knows a lone modifier as the key with its own modifier.
constexpr std::pair<quint32, int> modifierKeys[] = {{StoredModifier::command, Qt::Key_Meta},
                                                    {StoredModifier::shift, Qt::Key_Shift},
                                                    {StoredModifier::option, Qt::Key_Alt},
                                                    {StoredModifier::control, Qt::Key_Control}};

std::optional<int> keyOf(quint32 virtualKeyCode, const QString &characters)
{
    const auto *const function = std::ranges::find(VirtualKey::functionKeys, virtualKeyCode);
    if (function != std::end(VirtualKey::functionKeys))
        return Qt::Key_F1 + static_cast<int>(function - std::begin(VirtualKey::functionKeys));
    const auto kernelCode = KeyCodes::kernelCode(virtualKeyCode);
    const auto *const silent =
        std::ranges::find_if(silentKeys, [&](const auto &row) { return row.first == kernelCode; });
    if (silent != std::end(silentKeys))
        return silent->second;
    if (characters.size() != 1)
        return std::nullopt;
    return characters.toUpper().front().unicode();
}

} // namespace

std::optional<int> kdeKey(quint32 virtualKeyCode, quint32 modifiers, const QString &characters)
{
    if (const auto *const modifier = ModifierKeys::find(virtualKeyCode); modifier != nullptr) {
        const auto stored = modifier->modifier.storedBit;
        const auto *const row = std::ranges::find(
            modifierKeys, stored, [](const auto &candidate) { return candidate.first; });
        return row->second;
    }
    auto key = keyOf(virtualKeyCode, characters);
    for (const auto &[stored, bit] : modifierBits)
        if (key && (modifiers & stored) != 0)
            key = *key | bit;
    return key;
}
