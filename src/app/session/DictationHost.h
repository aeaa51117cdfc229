// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"

#include <QString>

#include <functional>

// What a dictation session needs of the application around it. Main thread only.
class DictationHost
{
public:
    DictationHost() = default;
    virtual ~DictationHost();
    DictationHost(const DictationHost &) = delete;
    DictationHost &operator=(const DictationHost &) = delete;

    // The settings in force now.
    [[nodiscard]] virtual const AppConfig &config() const = 0;
    // Shows the one-character state word in the status item's tool tip.
    virtual void updateStatusTitle(QStringView word) = 0;
    // Makes Escape cancel the recording, system-wide, and gives it back.
    virtual void registerEscapeCancelHotKey() = 0;
    virtual void unregisterEscapeCancelHotKey() = 0;
    // Tells the main window, when it is visible, that the history has changed.
    virtual void refreshMainWindow() = 0;
    // Tells the user what keeps this process from posting input and how to allow it.
    virtual void openAccessibilityPermissionSettings() = 0;
    // Raises a modal alert titled with the application's name; `dismissed` is called when it
    // closes.
    virtual void showAlert(const QString &text, std::function<void()> dismissed) = 0;
};
