// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandFocusReturn.h"

WaylandFocusReturn::WaylandFocusReturn(WaylandWindows &windows)
    : m_windows(windows)
{}

WaylandFocusReturn::~WaylandFocusReturn() = default;
