// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "GnomeKeybindings.h"

GnomeKeybindings::~GnomeKeybindings() = default;
