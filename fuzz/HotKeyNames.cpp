// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "HotKeyFormatter.h"
#include "KdeKey.h"
#include "KeyCodes.h"
#include "KeyNames.h"

// A key's code and the modifiers, a character each, then what the key types.
void fuzz(const QByteArray &input)
{
    const auto text = QString::fromUtf8(input).leftJustified(2);
    const KeyEvent key{text[0].unicode(), quint32{text[1].unicode()} << 16, text.mid(2)};
    const auto kernelCode = KeyCodes::kernelCode(key.keyCode);
    require(!kernelCode || KeyCodes::virtualKeyCode(*kernelCode) == key.keyCode);
    require(keyNames(key.keyCode, text.mid(2)).isEmpty() == !kernelCode);
    if (const auto config = HotKeyFormatter::config(key)) {
        require(config->displayName.endsWith(*HotKeyFormatter::keyName(key)));
        require(HotKeyFormatter::carbonValueContains(key.modifierFlags, config->modifiers));
        static_cast<void>(kdeKey(key.keyCode, config->modifiers, text.mid(2)));
    }
}
