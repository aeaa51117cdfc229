// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QString>

// Files and directories that hold keys and private text: readable by their owner alone, whoever
// made them, and replaced whole or not at all. Failures are thrown as FileError.
namespace SecureFile {

// Creates the directory with mode 0700, its parents with the usual one; an existing directory
// gets that mode.
void createDirectory(const QString &path);

// A whole regular file; its mode becomes 0600.
[[nodiscard]] QByteArray read(const QString &path);

// Writes a temporary file of mode 0600 beside the file (beside its target when it is a link) and
// renames it: at any moment the path holds the old content or the new one. A link whose target is
// not there (a volume that is not mounted) is refused. Takes the time of an fsync: the file
// survives a power cut too.
void replace(const QString &path, const QByteArray &content);

// Removes what a process that died within replace() left beside the file. Never throws.
void removeUnfinished(const QString &path);

// Opens a regular file, created when missing, to read it and add to its end; its mode becomes 0600.
// A link is followed to a file of this user only.
[[nodiscard]] FileDescriptor openForAppending(const QString &path);

// Writes the bytes and returns how many were written; when fewer than all, errno says why.
[[nodiscard]] qint64 writeSome(const FileDescriptor &file, const QByteArray &content);

} // namespace SecureFile
