// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// Whether a compositor shows windows translucently; taken for granted when Qt is not on X11.
[[nodiscard]] bool hasCompositor();
