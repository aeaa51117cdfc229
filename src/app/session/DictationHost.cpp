// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictationHost.h"

DictationHost::~DictationHost() = default;
