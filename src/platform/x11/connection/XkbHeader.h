// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// libxcb's header of the XKB extension names a field "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
