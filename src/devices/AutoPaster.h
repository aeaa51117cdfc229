// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainQueue.h"
#include "PasteConfig.h"
#include "SyntheticKeyboard.h"

#include <QString>

// Types text into the application that has the focus: onto the clipboard, then its paste chord.
class AutoPaster final
{
public:
    AutoPaster(const PasteConfig &config, SyntheticKeyboard &keyboard, MainQueue &mainQueue);

    // Returns when the chord's events have been posted. Any thread. Throws
    // HushwireError::permissionMissing (the clipboard is then untouched),
    // HushwireError::pasteFailed or CancelledError.
    void paste(const QString &text) const;

private:
    PasteConfig m_config;
    SyntheticKeyboard &m_keyboard;
    MainQueue &m_mainQueue;
};
