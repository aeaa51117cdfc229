// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "APIKeyConfigurationWindowController.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

// The line feed that ends the file is not part of the text.
QString tutorialText(QLatin1StringView name)
{
    QFile file(u":/tutorials/%1.txt"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("A tutorial is missing.");
    return QString::fromUtf8(file.readAll()).chopped(1);
}

} // namespace

QString APIKeyConfigurationWindowController::doubaoTutorialText()
{
    return tutorialText("doubao"_L1);
}

QString APIKeyConfigurationWindowController::deepSeekTutorialText()
{
    return tutorialText("deepSeek"_L1);
}
