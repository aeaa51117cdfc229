// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "InputPermissionHelp.h"

#include "TemporaryDirectory.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QUrl>

using namespace Qt::StringLiterals;

void InputPermissionHelp::open()
{
    // A browser cannot read the program's resources: it gets a copy.
    const auto directory = temporaryDirectoryPath();
    if (directory.isEmpty())
        return;
    const auto path = QDir(directory).filePath(u"wrenfold-input-permission.html"_s);
    QFile::remove(path);
    if (QFile::copy(u":/help/input-permission.html"_s, path))
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
