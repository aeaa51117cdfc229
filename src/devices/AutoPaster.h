// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clipboard.h"
#include "MainQueue.h"
#include "PasteConfig.h"
#include "PasteDelivery.h"
#include "SyntheticKeyboard.h"

#include <QString>

#include <memory>

// Types text into the application that has the focus: onto the clipboard, then its paste chord.
class AutoPaster final
{
public:
    // What pastes are made with; all of it is used by one paste after the other.
    struct Desktop
    {
        SyntheticKeyboard &keyboard;
        Clipboard &clipboard;
        PasteTurns &turns;
        MainQueue &mainQueue;
    };

    AutoPaster(const PasteConfig &config, const Desktop &desktop);

    // Returns when the chord's events have been posted, after the pastes before have been delivered
    // or given up, and once no other program holds the keyboard: that is waited for two seconds.
    // Unless it throws, `delivered` is then told what became of it, at most a second later. Any
    // thread but the main one. Throws HushwireError::permissionMissing (the clipboard is then
    // untouched), HushwireError::pasteFailed or CancelledError.
    void paste(const QString &text, PasteDelivery::Handler delivered) const;

private:
    [[nodiscard]] PasteChord awaitChord() const;
    void offer(const QString &text,
               PasteChord chord,
               const std::shared_ptr<PasteDelivery> &delivery) const;

    PasteConfig m_config;
    Desktop m_desktop;
};
