// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11KeyCharacters.h"

#include "KeyCodes.h"
#include "X11Selections.h"

#include <array>
#include <memory>
#include <xkbcommon/xkbcommon-x11.h>

namespace {

template<auto Release>
struct Releaser
{
    template<typename T>
    void operator()(T *object) const
    {
        Release(object);
    }
};

using Context = std::unique_ptr<xkb_context, Releaser<xkb_context_unref>>;
using Keymap = std::unique_ptr<xkb_keymap, Releaser<xkb_keymap_unref>>;
using State = std::unique_ptr<xkb_state, Releaser<xkb_state_unref>>;

// The keyboard with nothing held or locked but Num Lock, on the layout in use. Null when the
// display cannot tell.
State restingKeyboard(xcb_connection_t *connection)
{
    const Context context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const auto device = xkb_x11_get_core_keyboard_device_id(connection);
    if (!context || device < 0)
        return {};
    const Keymap keymap(xkb_x11_keymap_new_from_device(
        context.get(), connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap)
        return {};
    State state(xkb_x11_state_new_from_device(keymap.get(), connection, device));
    if (!state)
        return {};
    const auto layout = xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    const auto numLock = xkb_keymap_mod_get_index(keymap.get(), XKB_MOD_NAME_NUM);
    const xkb_mod_mask_t locked = numLock == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t{1} << numLock;
    xkb_state_update_mask(state.get(), 0, 0, locked, 0, 0, layout);
    return state;
}

} // namespace

QString charactersTypedBy(quint32 virtualKeyCode)
{
    auto *const connection = X11Selections::applicationConnection();
    const auto kernelCode = KeyCodes::kernelCode(virtualKeyCode);
    if (connection == nullptr || !kernelCode)
        return {};
    const auto state = restingKeyboard(connection);
    if (!state)
        return {};
    std::array<char, 64> characters{};
    xkb_state_key_get_utf8(
        state.get(), *kernelCode + KeyCodes::displayOffset, characters.data(), characters.size());
    return QString::fromUtf8(characters.data());
}
