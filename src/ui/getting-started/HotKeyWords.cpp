// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HotKeyWords.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// Empty for what is no modifier.
QString modifierWord(QChar symbol)
{
    switch (symbol.unicode()) {
    case u'⌘':
        return u"Super"_s;
    case u'⌥':
        return u"Alt"_s;
    case u'⌃':
        return u"Control"_s;
    case u'⇧':
        return u"Shift"_s;
    default:
        return {};
    }
}

} // namespace

QString hotKeyInWords(const QString &displayName)
{
    const bool hasSide = displayName.startsWith(u'左') || displayName.startsWith(u'右');
    const auto side = hasSide ? displayName.first(1) + u' ' : QString();
    auto rest = displayName.sliced(hasSide ? 1 : 0);
    QStringList words;
    while (!rest.isEmpty() && !modifierWord(rest.front()).isEmpty()) {
        words << modifierWord(rest.front());
        rest.remove(0, 1);
    }
    if (!rest.isEmpty())
        words << rest;
    return side + words.join(u'+');
}
