// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "StatusToolTip.h"

#include "AppRuntime.h"

using namespace Qt::StringLiterals;

QString statusToolTip(const HotKeyConfig &hotKey, QStringView word)
{
    const auto state = word.isEmpty() ? QString() : word.toString() + u"，"_s;
    return AppRuntime::appName + u"："_s + state + u"按 "_s + hotKey.displayName
        + u" 开始或停止录音"_s;
}
