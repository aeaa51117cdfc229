// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Version.h"

QString AppRuntime::version()
{
    return QStringLiteral(WRENFOLD_VERSION);
}
