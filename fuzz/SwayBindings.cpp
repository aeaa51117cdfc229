// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "SwayConfiguration.h"

using namespace Qt::StringLiterals;

void fuzz(const QByteArray &input)
{
    if (input.contains("include")) // of the files of this machine
        return;
    const SwayConfiguration configuration(QString::fromUtf8(input), u"/nowhere"_s);
    require(!configuration.commandOf({u"space"_s}, 0x300).value_or(QString()).contains(u'\n'));
}
