// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"

#include <QString>
#include <QUrl>

#include <functional>

// The outward steps of a dictation. All but openConnections block, throw when they fail and are
// called off the main thread.
struct DictationServices
{
    // Opens connections to both services, so that the requests to come find them open. Returns at
    // once and never throws.
    std::function<void(const AppConfig &)> openConnections;
    // Turns the recording into text, never empty.
    std::function<QString(const AppConfig &, const QUrl &audioURL)> transcribe;
    // Rewrites the transcript by the prompt, never empty.
    std::function<QString(const AppConfig &, const QString &prompt, const QString &transcript)>
        polish;
    // Types the text into the application that has the focus.
    std::function<void(const AppConfig &, const QString &text)> paste;
};
