// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The directory for this user's temporary files: $XDG_RUNTIME_DIR, else $TMPDIR, each only when it
// is an existing directory of this user that nobody else can write to; else a folder of ours named
// with the user id, created with mode 0700 inside $TMPDIR or /tmp. Such a folder that someone else
// owns, or that is a link, is refused: the result is then empty.
[[nodiscard]] QString temporaryDirectoryPath();
