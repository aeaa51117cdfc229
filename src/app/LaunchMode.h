// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// How the application begins when it is the one instance.
enum class LaunchMode {
    ShowsWindow,
    InBackground, // as the session starts it; a duplicate launch then asks for nothing
};
