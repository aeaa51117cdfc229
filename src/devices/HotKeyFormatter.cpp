// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HotKeyFormatter.h"

#include <QList>
#include <QStringView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Modifier
{
    quint32 carbonValue = 0;
    quint32 flag = 0;
    QStringView symbol;
};

// In the order in which names show them.
constexpr Modifier modifierTable[] = {{0x1000, ModifierFlag::control, u"⌃"},
                                      {0x800, ModifierFlag::option, u"⌥"},
                                      {0x200, ModifierFlag::shift, u"⇧"},
                                      {0x100, ModifierFlag::command, u"⌘"}};

struct ModifierKey
{
    quint32 keyCode = 0;
    quint32 carbonValue = 0;
    QStringView displayName;
};

constexpr ModifierKey modifierKeys[] = {{55, 0x100, u"左⌘"},
                                        {54, 0x100, u"右⌘"},
                                        {56, 0x200, u"左⇧"},
                                        {60, 0x200, u"右⇧"},
                                        {58, 0x800, u"左⌥"},
                                        {61, 0x800, u"右⌥"},
                                        {59, 0x1000, u"左⌃"},
                                        {62, 0x1000, u"右⌃"}};

struct NamedKey
{
    quint32 keyCode = 0;
    QStringView name;
};

// Function keys type nothing and are named by their labels.
constexpr NamedKey namedKeys[] = {{49, u"Space"}, {36, u"Return"}, {48, u"Tab"},
                                  {53, u"Esc"},   {51, u"Delete"}, {117, u"Forward Delete"},
                                  {123, u"←"},    {124, u"→"},     {126, u"↑"},
                                  {125, u"↓"},    {122, u"F1"},    {120, u"F2"},
                                  {99, u"F3"},    {118, u"F4"},    {96, u"F5"},
                                  {97, u"F6"},    {98, u"F7"},     {100, u"F8"},
                                  {101, u"F9"},   {109, u"F10"},   {103, u"F11"},
                                  {111, u"F12"},  {105, u"F13"},   {107, u"F14"},
                                  {113, u"F15"},  {106, u"F16"},   {64, u"F17"},
                                  {79, u"F18"},   {80, u"F19"},    {90, u"F20"}};

const ModifierKey *findModifierKey(quint32 keyCode)
{
    const auto *const found = std::ranges::find(modifierKeys, keyCode, &ModifierKey::keyCode);
    return found == std::end(modifierKeys) ? nullptr : found;
}

} // namespace

std::optional<QString> HotKeyFormatter::modifierOnlyDisplayName(quint32 keyCode)
{
    const auto *const key = findModifierKey(keyCode);
    return key != nullptr ? std::optional(key->displayName.toString()) : std::nullopt;
}

quint32 HotKeyFormatter::modifierCarbonValue(quint32 keyCode)
{
    const auto *const key = findModifierKey(keyCode);
    return key != nullptr ? key->carbonValue : 0;
}

quint32 HotKeyFormatter::carbonModifiers(quint32 modifierFlags)
{
    quint32 mask = 0;
    for (const auto &modifier : modifierTable)
        if ((modifierFlags & modifier.flag) != 0)
            mask |= modifier.carbonValue;
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
    const auto typed = event.charactersIgnoringModifiers.value_or(QString()).trimmed();
    return typed.isEmpty() ? std::nullopt : std::optional(typed.toUpper());
}

QString HotKeyFormatter::displayName(quint32 modifiers, const QString &keyName)
{
    QString name;
    for (const auto &modifier : modifierTable)
        if ((modifiers & modifier.carbonValue) != 0)
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
