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

// Gets the file `name` ready to be read: unfinished writes of dead processes are removed, and when
// there is no such file but a legacy one, that one is copied (it stays where it is). Returns
// whether the file exists now. Throws FileError when the copy fails.
[[nodiscard]] bool prepareFile(const QString &name);

} // namespace DataDirectory
