// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <optional>

// A key with modifiers, as GTK writes it: "<Super><Shift>space", or with the key's X code in the
// place of its name, "<Super>0x41", which holds on every layout.
struct Accelerator
{
    // The key that types the symbol, by its X code; absent where no key does.
    using KeyFinder = std::function<std::optional<quint8>(quint32 keySymbol)>;

    quint32 modifiers = 0; // a mask of StoredModifier bits
    quint32 key = 0; // X key code

    // Absent for what no hotkey of ours can be: no key of this keyboard, another modifier.
    [[nodiscard]] static std::optional<Accelerator> parse(const QString &text,
                                                          const KeyFinder &keyTyping);
    [[nodiscard]] QString text() const;

    bool operator==(const Accelerator &) const = default;
};
