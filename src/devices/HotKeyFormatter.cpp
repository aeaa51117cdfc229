// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HotKeyFormatter.h"

#include "VirtualKey.h"

#include <QList>
#include <QStringView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct NamedKey
{
    quint32 keyCode = 0;
    QStringView name;
};

constexpr NamedKey namedKeys[] = {{VirtualKey::space, u"Space"},
                                  {VirtualKey::returnKey, u"Return"},
                                  {VirtualKey::tab, u"Tab"},
                                  {VirtualKey::escape, u"Esc"},
                                  {VirtualKey::backspace, u"Delete"},
                                  {VirtualKey::forwardDelete, u"Forward Delete"},
                                  {VirtualKey::left, u"←"},
                                  {VirtualKey::right, u"→"},
                                  {VirtualKey::up, u"↑"},
                                  {VirtualKey::down, u"↓"}};

// Function keys type nothing and are named by their labels.
std::optional<QString> functionKeyName(quint32 keyCode)
{
    using VirtualKey::functionKeys;
    const auto *const found = std::ranges::find(functionKeys, keyCode);
    if (found == std::end(functionKeys))
        return std::nullopt;
    return u'F' + QString::number(found - std::begin(functionKeys) + 1);
}

} // namespace

std::optional<QString> HotKeyFormatter::modifierOnlyDisplayName(quint32 keyCode)
{
    const auto *const key = ModifierKeys::find(keyCode);
    return key != nullptr ? std::optional(key->displayName.toString()) : std::nullopt;
}

quint32 HotKeyFormatter::modifierCarbonValue(quint32 keyCode)
{
    const auto *const key = ModifierKeys::find(keyCode);
    return key != nullptr ? key->modifier.storedBit : 0;
}

quint32 HotKeyFormatter::carbonModifiers(quint32 modifierFlags)
{
    quint32 mask = 0;
    for (const auto &modifier : ModifierKeys::modifiers)
        if ((modifierFlags & modifier.flag) != 0)
            mask |= modifier.storedBit;
    return mask;
}

bool HotKeyFormatter::carbonValueContains(quint32 modifierFlags, quint32 mask)
{
    return (carbonModifiers(modifierFlags) & mask) == mask;
}

std::optional<QString> HotKeyFormatter::keyName(const KeyEvent &event)
{
    const auto *const named = std::ranges::find(namedKeys, event.keyCode, &NamedKey::keyCode);
    if (named != std::end(namedKeys))
        return named->name.toString();
    if (auto name = functionKeyName(event.keyCode))
        return name;
    const auto typed = event.charactersIgnoringModifiers.value_or(QString()).trimmed();
    return typed.isEmpty() ? std::nullopt : std::optional(typed.toUpper());
}

QString HotKeyFormatter::displayName(quint32 modifiers, const QString &keyName)
{
    QString name;
    for (const auto &modifier : ModifierKeys::modifiers)
        if ((modifiers & modifier.storedBit) != 0)
            name += modifier.symbol;
    return name + keyName;
}

std::optional<HotKeyConfig> HotKeyFormatter::config(const KeyEvent &keyDown)
{
    const auto name = keyName(keyDown);
    if (!name)
        return std::nullopt;
    const auto modifiers = carbonModifiers(keyDown.modifierFlags);
    return HotKeyConfig{keyDown.keyCode, modifiers, displayName(modifiers, *name)};
}

std::optional<HotKeyConfig> HotKeyFormatter::configFromFlagsChanged(const KeyEvent &event)
{
    const auto name = modifierOnlyDisplayName(event.keyCode);
    if (!name)
        return std::nullopt;
    return HotKeyConfig{event.keyCode, modifierCarbonValue(event.keyCode), *name};
}

quint32 fourCharCode(const QString &text)
{
    quint32 code = 0;
    for (const auto scalar : text.toUcs4())
        code = (code << 8) + scalar;
    return code;
}
