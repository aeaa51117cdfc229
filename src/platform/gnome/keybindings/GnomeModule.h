// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "GnomeKeybindings.h"

#include <memory>

// The part of the program that knows GNOME's settings. It is a library of its own, beside the
// program, that only a Wayland session loads.
namespace GnomeModule {

// The shortcuts of this session; null on X11 and where nobody listens to them. Needs an application
// object.
[[nodiscard]] std::unique_ptr<GnomeKeybindings> openKeybindings();

// What the library exports, by this name; null without GNOME's settings, else its caller's.
inline constexpr auto entryPoint = "wrenfoldOpenGnomeKeybindings";
using EntryPoint = GnomeKeybindings *();

} // namespace GnomeModule
