// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "SwayConfiguration.h"

using namespace Qt::StringLiterals;

void fuzz(const QByteArray &input)
{
    // Of the files of this machine; and few variables, which can grow beyond any memory.
    if (input.contains("include") || input.count("set") > 3)
        return;
    const SwayConfiguration configuration(QString::fromUtf8(input), u"/nowhere"_s);
    require(!configuration.commandOf({u"space"_s}, 0x300).value_or(QString()).contains(u'\n'));
}
