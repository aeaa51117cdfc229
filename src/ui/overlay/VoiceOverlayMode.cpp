// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VoiceOverlayMode.h"

using namespace Qt::StringLiterals;

VoiceOverlayMode VoiceOverlayMode::recording(const QString &microphoneName)
{
    return {Kind::Recording, microphoneName};
}

VoiceOverlayMode VoiceOverlayMode::typing(const QString &text)
{
    return {Kind::Typing, text};
}

VoiceOverlayMode VoiceOverlayMode::status(const QString &text)
{
    return {Kind::Status, text};
}

QString VoiceOverlayMode::displayedText() const
{
    return kind == Kind::Recording ? u"使用中 "_s + text : text;
}
