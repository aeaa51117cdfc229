// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11KeyboardMap.h"

#include "X11Reply.h"
#include "X11RoundTrip.h"
#include "XkbHeader.h"

#include <algorithm>

#include <X11/keysym.h>
#include <xcb/xcb.h>

namespace {

// Asks for these parts of the map, each whole.
xcb_xkb_get_map_cookie_t
requestMap(xcb_connection_t *connection, xcb_xkb_device_spec_t keyboard, quint16 parts)
{
    constexpr quint8 none = 0;
    // NOLINTNEXTLINE(readability-suspicious-call-argument): the parts asked for are whole
    return xcb_xkb_get_map(connection,
                           keyboard,
                           parts,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none,
                           none);
}

} // namespace

std::optional<X11KeyboardMap> X11KeyboardMap::read(X11Connection &connection)
{
    return read(connection, XCB_XKB_ID_USE_CORE_KBD);
}

std::optional<X11KeyboardMap> X11KeyboardMap::read(X11Connection &connection, quint16 keyboard)
{
    auto *const server = connection.get();
    const X11RoundTrip roundTrip(connection);
    // The layout in use is that of the keyboard as a whole, whichever device its keys come from.
    const auto stateRequest = xcb_xkb_get_state(server, XCB_XKB_ID_USE_CORE_KBD);
    const auto mapRequest =
        requestMap(server, keyboard, XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP);
    const auto state = replyTo(server, stateRequest, xcb_xkb_get_state_reply);
    const auto map = replyTo(server, mapRequest, xcb_xkb_get_map_reply);
    if (!state || !map)
        return std::nullopt;
    X11KeyboardMap result;
    result.m_currentLayout = state->group;
    result.readParts(map.get());
    return result;
}

void X11KeyboardMap::readParts(const xcb_xkb_get_map_reply_t *reply)
{
    xcb_xkb_get_map_map_t parts{};
    xcb_xkb_get_map_map_unpack(xcb_xkb_get_map_map(reply),
                               0,
                               reply->nKeySyms,
                               0,
                               0,
                               0,
                               0,
                               0,
                               reply->totalModMapKeys,
                               0,
                               reply->present,
                               &parts);
    readSymbols(xcb_xkb_get_map_map_syms_rtrn_iterator(reply, &parts), reply->firstKeySym);
    auto keys = xcb_xkb_get_map_map_modmap_rtrn_iterator(reply, &parts);
    for (; keys.rem > 0; xcb_xkb_key_mod_map_next(&keys))
        for (std::size_t row = 0; row < rowCount; ++row)
            if ((keys.data->mods >> row & 1) != 0)
                m_rows.at(row).push_back(keys.data->keycode);
}

void X11KeyboardMap::readSymbols(xcb_xkb_key_sym_map_iterator_t keys, std::size_t firstKey)
{
    for (auto key = firstKey; keys.rem > 0 && key < m_symbols.size(); ++key) {
        const auto *const symbols = xcb_xkb_key_sym_map_syms(keys.data);
        const std::size_t layouts = keys.data->groupInfo & 0x0fU;
        for (std::size_t layout = 0; layout < layouts; ++layout)
            m_symbols.at(key).push_back(symbols[layout * keys.data->width]);
        m_layoutCount = std::max(m_layoutCount, layouts);
        xcb_xkb_key_sym_map_next(&keys);
    }
}

const std::vector<quint8> &X11KeyboardMap::modifierKeys(std::size_t row) const
{
    return m_rows.at(row);
}

quint16 X11KeyboardMap::modifierBits(quint32 wanted, quint32 alternative) const
{
    unsigned bits = 0;
    for (std::size_t row = FirstModRow; row < rowCount; ++row)
        for (const auto key : m_rows.at(row))
            if (const auto carried = symbol(key, 0); carried == wanted || carried == alternative)
                bits |= 1U << row;
    return static_cast<quint16>(bits);
}

std::optional<quint8> X11KeyboardMap::keyTyping(quint32 wanted) const
{
    for (std::size_t i = 0; i < m_layoutCount; ++i)
        for (std::size_t key = 0; key < m_symbols.size(); ++key)
            if (symbol(static_cast<quint8>(key), m_currentLayout + i) == wanted)
                return static_cast<quint8>(key);
    return std::nullopt;
}

bool X11KeyboardMap::isHeldModifier(quint8 key) const
{
    switch (symbol(key, 0)) {
    case XK_Caps_Lock:
    case XK_Shift_Lock:
    case XK_Num_Lock:
    case XK_Scroll_Lock:
    case XK_ISO_Lock:
        return false;
    case XK_ISO_Level3_Shift:
    case XK_ISO_Level5_Shift:
    case XK_Mode_switch:
        return true;
    default:
        return std::ranges::any_of(m_rows, [key](const std::vector<quint8> &keys) {
            return std::ranges::count(keys, key) > 0;
        });
    }
}

quint32 X11KeyboardMap::symbol(quint8 key, std::size_t layout) const
{
    const auto &symbols = m_symbols.at(key);
    return symbols.empty() ? XCB_NO_SYMBOL : symbols[layout % symbols.size()];
}
