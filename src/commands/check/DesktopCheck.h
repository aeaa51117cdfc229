// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Backends.h"
#include "Finding.h"
#include "HotKeyConfig.h"

// Looks at what this desktop lets the application do. Needs the application object.
namespace DesktopCheck {

[[nodiscard]] Finding microphone(AudioSystem &audio);
// Of the running instance, or else whether it can be had now.
[[nodiscard]] Finding hotKey(const Backends &backends, const HotKeyConfig &hotKey, bool isRunning);
// Of a recording that runs: whether Escape can be had to throw it away. Not while Wrenfold runs.
[[nodiscard]] Finding escape(HotKeyRegistrar &hotKeys);
[[nodiscard]] Finding paste(const SyntheticKeyboard &keyboard);
[[nodiscard]] Finding clipboard(const Backends &backends);
[[nodiscard]] Finding overlay(const Backends &backends);
[[nodiscard]] Finding tray();

} // namespace DesktopCheck
