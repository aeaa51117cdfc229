// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandKeymap.h"

#include "KeyCodes.h"

#include <array>
#include <cstdlib>
#include <xkbcommon/xkbcommon.h>

WaylandKeymap::WaylandKeymap()
    : m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref)
{
    xkb_rule_names names{};
    names.layout = "us";
    m_keymap = {xkb_keymap_new_from_names(m_context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS),
                &xkb_keymap_unref};
}

WaylandKeymap::WaylandKeymap(const QByteArray &description)
    : m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref)
    , m_keymap(xkb_keymap_new_from_string(m_context.get(),
                                          description.constData(),
                                          XKB_KEYMAP_FORMAT_TEXT_V1,
                                          XKB_KEYMAP_COMPILE_NO_FLAGS),
               &xkb_keymap_unref)
{}

QByteArray WaylandKeymap::description() const
{
    const std::unique_ptr<char, decltype(&std::free)> text(
        m_keymap ? xkb_keymap_get_as_string(m_keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1) : nullptr,
        &std::free);
    return QByteArray(text.get()) + '\0';
}

QString WaylandKeymap::charactersTypedBy(quint32 virtualKeyCode) const
{
    const auto kernelCode = KeyCodes::kernelCode(virtualKeyCode);
    if (!m_keymap || !kernelCode)
        return {};
    const std::unique_ptr<xkb_state, decltype(&xkb_state_unref)> state(
        xkb_state_new(m_keymap.get()), &xkb_state_unref);
    const auto numLock = xkb_keymap_mod_get_index(m_keymap.get(), XKB_MOD_NAME_NUM);
    if (numLock != XKB_MOD_INVALID)
        xkb_state_update_mask(state.get(), 0, 0, xkb_mod_mask_t{1} << numLock, 0, 0, 0);
    std::array<char, 64> characters{};
    xkb_state_key_get_utf8(
        state.get(), *kernelCode + KeyCodes::displayOffset, characters.data(), characters.size());
    return QString::fromUtf8(characters.data());
}
