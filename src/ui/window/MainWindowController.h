// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "APIKeyTutorialWindowController.h"
#include "AppConfig.h"
#include "DeletionUndo.h"
#include "HotKeyCaptureButton.h"
#include "MainQueue.h"
#include "MainWindowCallbacks.h"
#include "MainWindowPage.h"
#include "WindowSizeStore.h"

#include <memory>

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
    // Builds nothing yet: the window is built when it is first shown. A while after it was closed
    // it gives back the memory that it does not need to be shown again at once.
    MainWindowController(MainQueue &queue,
                         HistoryStore &store,
                         HotKeyCaptureButton::KeyCharacters keyCharacters,
                         MainWindowCallbacks callbacks);
    ~MainWindowController();

    // Fills the controls from the configuration and brings the window to the front, on that page.
    void show(const AppConfig &config, MainWindowPage page);
    // Shows what has changed, if the window is visible; edits that were not saved are discarded.
    void refreshIfVisible(const AppConfig &config);
    [[nodiscard]] bool isVisible() const;
    // Whether this window or the tutorial can be seen.
    [[nodiscard]] bool hasVisibleWindow() const;
    // Keeps how large the window is when the application quits.
    void keepSize();
    // Whom the window tells what the user does.
    [[nodiscard]] const MainWindowCallbacks &callbacks() const { return m_callbacks; }

private:
    void buildWindow();
    void load(const AppConfig &config);
    void windowClosed();
    void release();

    MainQueue &m_queue;
    HistoryStore &m_store;
    HotKeyCaptureButton::KeyCharacters m_keyCharacters;
    const MainWindowCallbacks m_callbacks;
    DeletionUndo m_deletions;
    APIKeyTutorialWindowController m_tutorialWindowController;
    std::unique_ptr<MainWindow> m_window;
    WindowSizeStore m_size;
    int m_closings = 0;
    // The window's.
    GettingStartedPage *m_gettingStartedPage = nullptr;
    HistoryPage *m_historyPage = nullptr;
    DictionaryPage *m_dictionaryPage = nullptr;
};
