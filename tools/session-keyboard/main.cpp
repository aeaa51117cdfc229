// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
//
// A keyboard for private Wayland desktops, which have none: presses keys as fingers would. Reads
// lines of keys by the kernel's codes, "+29 +47 -47 -29", and answers each with "done" when the
// compositor has had them. The keyboard is gone when the input ends.

#include "fake-input.h"
#include "virtual-keyboard-unstable-v1.h"

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <xkbcommon/xkbcommon.h>

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>

namespace {

constexpr std::uint32_t xkbOffset = 8;

struct Globals
{
    wl_seat *seat = nullptr;
    zwp_virtual_keyboard_manager_v1 *keyboards = nullptr;
    org_kde_kwin_fake_input *fakeInput = nullptr;
};

void addGlobal(
    void *data, wl_registry *registry, std::uint32_t name, const char *offered, std::uint32_t)
{
    auto &globals = *static_cast<Globals *>(data);
    const auto bind = [&](const wl_interface &interface, std::uint32_t version, auto *&place) {
        if (std::string_view(offered) == interface.name)
            place = static_cast<std::remove_reference_t<decltype(place)>>(
                wl_registry_bind(registry, name, &interface, version));
    };
    bind(wl_seat_interface, 1, globals.seat);
    bind(zwp_virtual_keyboard_manager_v1_interface, 1, globals.keyboards);
    bind(org_kde_kwin_fake_input_interface, 4, globals.fakeInput);
}

void removeGlobal(void *, wl_registry *, std::uint32_t) {}

std::uint32_t now()
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

using Press = std::function<void(std::uint32_t key, bool isDown)>;

void giveKeymap(zwp_virtual_keyboard_v1 *keyboard, xkb_keymap *keymap)
{
    char *const text = xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1);
    const auto size = std::strlen(text) + 1;
    const int file = memfd_create("keymap", MFD_CLOEXEC);
    if (write(file, text, size) == static_cast<ssize_t>(size))
        zwp_virtual_keyboard_v1_keymap(
            keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file, static_cast<std::uint32_t>(size));
    close(file);
    std::free(text);
}

// The layout is the one that XKB_DEFAULT_LAYOUT names.
Press virtualKeyboard(const Globals &globals)
{
    auto *const keyboard =
        zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(globals.keyboards, globals.seat);
    auto *const keymap = xkb_keymap_new_from_names(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS);
    giveKeymap(keyboard, keymap);
    auto *const state = xkb_state_new(keymap);
    return [keyboard, state](std::uint32_t key, bool isDown) {
        zwp_virtual_keyboard_v1_key(keyboard, now(), key, isDown ? 1 : 0);
        xkb_state_update_key(state, key + xkbOffset, isDown ? XKB_KEY_DOWN : XKB_KEY_UP);
        zwp_virtual_keyboard_v1_modifiers(keyboard,
                                          xkb_state_serialize_mods(state, XKB_STATE_MODS_DEPRESSED),
                                          xkb_state_serialize_mods(state, XKB_STATE_MODS_LATCHED),
                                          xkb_state_serialize_mods(state, XKB_STATE_MODS_LOCKED),
                                          0);
    };
}

Press fakeInput(const Globals &globals)
{
    org_kde_kwin_fake_input_authenticate(globals.fakeInput, "session-keyboard", "tests");
    return [input = globals.fakeInput](std::uint32_t key, bool isDown) {
        org_kde_kwin_fake_input_keyboard_key(input, key, isDown ? 1 : 0);
    };
}

} // namespace

int main()
{
    auto *const display = wl_display_connect(nullptr);
    if (display == nullptr)
        return EXIT_FAILURE;
    Globals globals;
    static constexpr wl_registry_listener listener{&addGlobal, &removeGlobal};
    wl_registry_add_listener(wl_display_get_registry(display), &listener, &globals);
    wl_display_roundtrip(display);
    if (globals.keyboards == nullptr && globals.fakeInput == nullptr)
        return EXIT_FAILURE;
    const auto press = globals.keyboards != nullptr ? virtualKeyboard(globals) : fakeInput(globals);
    wl_display_roundtrip(display);
    std::cout << "ready" << std::endl;
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream keys(line);
        for (int key = 0; keys >> key;)
            press(static_cast<std::uint32_t>(std::abs(key)), key > 0);
        wl_display_roundtrip(display);
        std::cout << "done" << std::endl;
    }
    return EXIT_SUCCESS;
}
