// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

// Whether a clipboard manager runs that asks to be handed clipboards.
[[nodiscard]] bool hasClipboardManager();

// Before the application ends: hands a clipboard it owns over to the running clipboard manager,
// which keeps it when we are gone, and then lets go of it. Qt would do the same later, but wait
// five seconds for a manager that does not answer. Returns within the limit, at once when there is
// nothing to hand over or nobody to take it.
void handOverClipboard(std::chrono::milliseconds limit = std::chrono::milliseconds(300));
