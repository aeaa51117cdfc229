// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"
#include "PasteDelivery.h"

#include <QString>
#include <QUrl>

#include <functional>

// The outward steps of a dictation. All but openConnections and copy block, throw when they fail
// and are called off the main thread.
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
    // Types the text into the application that has the focus; unless it throws, `delivered` is told
    // on the main thread whether it was fetched.
    std::function<void(const AppConfig &, const QString &text, PasteDelivery::Handler delivered)>
        paste;
    // Gives the focus back to the window that had it before ours; false when there is none. Throws
    // nothing.
    std::function<bool()> returnFocus;
    // Leaves the text on the clipboard. Main thread only.
    std::function<void(const QString &text)> copy;
};
