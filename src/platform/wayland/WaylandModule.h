// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "WaylandDesktop.h"

#include <memory>

// The part of the program that speaks Wayland. It is a library of its own, beside the program, that
// only a Wayland session loads.
namespace WaylandModule {

// Connects to the compositor that the environment names and asks what it offers, in one round trip.
// Null when there is none, or the library is not there. Needs no application object.
[[nodiscard]] std::unique_ptr<WaylandDesktop> connect();

// What the library exports, by this name; its caller owns the result.
inline constexpr auto entryPoint = "wrenfoldConnectToCompositor";
using EntryPoint = WaylandDesktop *();

} // namespace WaylandModule
