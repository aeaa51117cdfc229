// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"

#include <QString>

#include <functional>

// The main window's pages, in sidebar order.
enum class MainWindowPage {
    GettingStarted,
    History,
    Dictionary,
    Contact,
};

// The main window as the application controller sees it: it is shown and refreshed, and reports
// what the user changes. The window itself is not built yet; showing it does nothing.
class MainWindowController final
{
public:
    void show(const AppConfig &config, MainWindowPage page);
    // Shows what has changed, if the window is visible.
    void refreshIfVisible(const AppConfig &config);
    [[nodiscard]] bool isVisible() const;

    std::function<void(const QString &doubaoAPIKey, const QString &deepSeekAPIKey)> onAPIKeysSave;
    std::function<void(const HotKeyConfig &)> onHotKeyChange;
    std::function<void(const PromptSettings &, const QString &promptText)> onPromptSettingsChange;
    std::function<void(const PersonalDictionaryConfig &)> onPersonalDictionaryChange;
    std::function<void(const QString &text)> onPasteHistory;
    std::function<void()> onOpenLogFolder;
};
