// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "KeyNames.h"

#include "KeyCodes.h"

#include <array>
#include <memory>
#include <xkbcommon/xkbcommon.h>

namespace {

using Keymap = std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)>;

Keymap makeAmericanKeymap()
{
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
    xkb_rule_names names{};
    names.layout = "us";
    return {xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS),
            &xkb_keymap_unref};
}

QString nameOf(xkb_keysym_t symbol)
{
    std::array<char, 64> name{};
    return xkb_keysym_get_name(symbol, name.data(), name.size()) > 0
        ? QString::fromLatin1(name.data())
        : QString();
}

} // namespace

QStringList keyNames(quint32 virtualKeyCode, const QString &characters)
{
    static const auto keymap = makeAmericanKeymap();
    const auto kernelCode = KeyCodes::kernelCode(virtualKeyCode);
    if (!kernelCode)
        return {};
    const auto code = *kernelCode + KeyCodes::displayOffset;
    QStringList names{QString::number(code)};
    const xkb_keysym_t *symbols = nullptr;
    if (keymap && xkb_keymap_key_get_syms_by_level(keymap.get(), code, 0, 0, &symbols) > 0)
        names << nameOf(*symbols);
    if (!characters.isEmpty())
        names << nameOf(xkb_utf32_to_keysym(characters.toUcs4().constFirst()));
    return names;
}
