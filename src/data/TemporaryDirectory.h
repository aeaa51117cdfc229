// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The directory for this user's temporary files: $XDG_RUNTIME_DIR, else $TMPDIR, else a folder of
// ours under /tmp with the user id in its name, created with mode 0700. A fallback folder that
// someone else owns, or that is a link, is refused: the result is then empty.
[[nodiscard]] QString temporaryDirectoryPath();
