// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Accelerator.h"

#include "KeyCodes.h"
#include "ModifierKeys.h"

#include <xkbcommon/xkbcommon.h>

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;

namespace {

struct Name
{
    QLatin1StringView text;
    quint32 storedBit = 0;
};

// The first of each modifier is the one that we write.
constexpr Name modifierNames[] = {
    {"control"_L1, StoredModifier::control},
    {"alt"_L1, StoredModifier::option},
    {"shift"_L1, StoredModifier::shift},
    {"super"_L1, StoredModifier::command},
    {"primary"_L1, StoredModifier::control},
    {"ctrl"_L1, StoredModifier::control},
    {"ctl"_L1, StoredModifier::control},
    {"mod1"_L1, StoredModifier::option},
    {"mod4"_L1, StoredModifier::command},
};

std::optional<quint32> modifierNamed(QStringView name)
{
    for (const auto &known : modifierNames)
        if (name.compare(known.text, Qt::CaseInsensitive) == 0)
            return known.storedBit;
    return std::nullopt;
}

std::optional<quint32> keyNamed(const QString &name, const Accelerator::KeyFinder &keyTyping)
{
    if (name.startsWith("0x"_L1))
        return name.toUInt(nullptr, 16);
    if (name.compare("Above_Tab"_L1, Qt::CaseInsensitive) == 0) // the window manager's own name
        return KEY_GRAVE + KeyCodes::displayOffset;
    const auto symbol =
        xkb_keysym_from_name(name.toUtf8().constData(), XKB_KEYSYM_CASE_INSENSITIVE);
    return symbol == XKB_KEY_NoSymbol ? std::nullopt : keyTyping(symbol);
}

} // namespace

std::optional<Accelerator> Accelerator::parse(const QString &text, const KeyFinder &keyTyping)
{
    Accelerator accelerator;
    auto rest = QStringView(text);
    while (rest.startsWith(u'<')) {
        const auto end = rest.indexOf(u'>');
        const auto modifier = modifierNamed(rest.sliced(1).left(end - 1));
        if (end < 0 || !modifier)
            return std::nullopt;
        accelerator.modifiers |= *modifier;
        rest = rest.sliced(end + 1);
    }
    const auto key = keyNamed(rest.toString(), keyTyping);
    if (!key)
        return std::nullopt;
    accelerator.key = *key;
    return accelerator;
}

QString Accelerator::text() const
{
    QString text;
    auto missing = modifiers;
    for (const auto &name : modifierNames)
        if ((missing & name.storedBit) != 0) {
            text += u'<' + name.text + u'>';
            missing &= ~name.storedBit;
        }
    return text + "0x"_L1 + QString::number(key, 16);
}
