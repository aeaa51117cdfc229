// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Where the files of this user are kept. Computed from the home directory at each call.
namespace DataDirectory {

// "~/.wrenfold", absolute.
[[nodiscard]] QString path();
// A file in that directory, and the file of the same name that an earlier release may have left.
[[nodiscard]] QString filePath(const QString &name);
[[nodiscard]] QString legacyFilePath(const QString &name);

// Creates the directory, or makes an existing one private. Throws FileError.
void create();

// Moves what stands in the place of the file `name` and cannot be read to
// "<name>.unreadable-<time>.<suffix>", never over something else, and returns that path; empty when
// nothing stands there. Throws FileError.
[[nodiscard]] QString setAside(const QString &name);

// Gets the file `name` ready to be read: unfinished writes of dead processes are removed, and when
// there is no such file but a legacy one, that one is copied (it stays where it is). Returns
// whether the file exists now; a link without its target counts as one, so that it is not taken for
// a missing file. Throws FileError when the copy fails.
[[nodiscard]] bool prepareFile(const QString &name);

} // namespace DataDirectory
