// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QString;
struct HotKeyConfig;
struct PersonalDictionaryConfig;
struct PromptSettings;

// What the user does in the main window, told to the application by whoever notices it. None of
// them is ever empty: one that is not given does nothing.
struct MainWindowCallbacks
{
    // Both keys are trimmed and not empty.
    std::function<void(const QString &doubaoAPIKey, const QString &deepSeekAPIKey)> onAPIKeysSave =
        [](const QString &, const QString &) {};
    std::function<void(const HotKeyConfig &)> onHotKeyChange = [](const HotKeyConfig &) {};
    // The user is about to press the next hotkey in our window, or no longer is.
    std::function<void(bool isCapturing)> onHotKeyCaptureChange = [](bool) {};
    // The text is that of the prompt that is active now.
    std::function<void(const PromptSettings &, const QString &promptText)> onPromptSettingsChange =
        [](const PromptSettings &, const QString &) {};
    // The whole dictionary, also when what the user did has left it as it was.
    std::function<void(const PersonalDictionaryConfig &)> onPersonalDictionaryChange =
        [](const PersonalDictionaryConfig &) {};
    // A polished text of the history.
    std::function<void(const QString &text)> onPasteHistory = [](const QString &) {};
    std::function<void(const QString &text)> onCopyHistory = [](const QString &) {};
    std::function<void()> onOpenLogFolder = [] {};
};
