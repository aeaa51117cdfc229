// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "APIKeyTutorialWindowController.h"
#include "AppConfig.h"
#include "HotKeyCaptureButton.h"
#include "MainWindowPage.h"

#include <functional>
#include <memory>

class ContactPage;
class DictionaryPage;
class GettingStartedPage;
class HistoryPage;
class HistoryStore;
class MainWindow;

// The main window as the application controller sees it: it is shown and refreshed, and reports
// what the user changes. It never writes the configuration. Main thread only.
class MainWindowController final
{
public:
    // Builds nothing yet: the window is built when it is first shown, and then kept.
    MainWindowController(HistoryStore &store, HotKeyCaptureButton::KeyCharacters keyCharacters);
    ~MainWindowController();

    // Fills the controls from the configuration and brings the window to the front, on that page.
    void show(const AppConfig &config, MainWindowPage page);
    // Shows what has changed, if the window is visible; edits that were not saved are discarded.
    void refreshIfVisible(const AppConfig &config);
    [[nodiscard]] bool isVisible() const;

    std::function<void(const QString &doubaoAPIKey, const QString &deepSeekAPIKey)> onAPIKeysSave;
    std::function<void(const HotKeyConfig &)> onHotKeyChange;
    // The user is about to press the next hotkey in our window, or no longer is.
    std::function<void(bool isCapturing)> onHotKeyCaptureChange;
    std::function<void(const PromptSettings &, const QString &promptText)> onPromptSettingsChange;
    std::function<void(const PersonalDictionaryConfig &)> onPersonalDictionaryChange;
    std::function<void(const QString &text)> onPasteHistory;
    std::function<void()> onOpenLogFolder;

private:
    void buildWindow();
    void connectPages();
    void load(const AppConfig &config);
    void switchTo(MainWindowPage page);

    HistoryStore &m_store;
    HotKeyCaptureButton::KeyCharacters m_keyCharacters;
    APIKeyTutorialWindowController m_tutorialWindowController;
    std::unique_ptr<MainWindow> m_window;
    // The window's.
    GettingStartedPage *m_gettingStartedPage = nullptr;
    HistoryPage *m_historyPage = nullptr;
    DictionaryPage *m_dictionaryPage = nullptr;
    ContactPage *m_contactPage = nullptr;
};
