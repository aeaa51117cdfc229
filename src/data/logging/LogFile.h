// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

// The log's files: one that grows, and one older generation. Several processes may add lines at
// once, but within a process one thread at a time.
namespace LogFile {

// A file of this many bytes or more becomes the older generation before a line is added.
inline constexpr qint64 rotationSize = 1'000'000;

[[nodiscard]] QString directoryPath();
[[nodiscard]] QString path();

// Creates the directory and an empty file where they are missing. Throws FileError.
void prepare();

// Adds the line, which ends in a line feed, or nothing of it. Behind a line that a killed process
// left unfinished it starts a new one. The file is opened and closed each
// time. Throws FileError.
void append(const QByteArray &line);

// All lines there are, those of the older generation first. Throws FileError when a file that is
// there cannot be read.
[[nodiscard]] QByteArray contents();

} // namespace LogFile
