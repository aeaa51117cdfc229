// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SwayLeftBindings.h"

#include "AppRuntime.h"
#include "SwaySocket.h"

#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

// Gone with the login, as the bindings are.
QString path()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + u'/'
        + AppRuntime::bundleIdentifier + ".sway-bindings"_L1;
}

} // namespace

void SwayLeftBindings::remember(const QByteArrayList &combinations)
{
    QFile file(path());
    if (combinations.isEmpty())
        file.remove();
    else if (file.open(QIODevice::WriteOnly))
        file.write(combinations.join('\n'));
}

void SwayLeftBindings::sweep()
{
    QFile file(path());
    if (!file.open(QIODevice::ReadOnly))
        return;
    const auto combinations = file.readAll().split('\n');
    for (const auto &combination : combinations)
        SwaySocket::run("unbindcode " + combination);
    file.remove();
}
