// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandDesktop.h"

WaylandDesktop::~WaylandDesktop() = default;
