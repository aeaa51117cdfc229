// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"
#include "HotKeyCaptureButton.h"

class APIKeySection;
class APIKeyTutorialWindowController;
class DeletionUndo;
class HotKeySection;
class PromptSection;
class QScrollArea;
struct MainWindowCallbacks;

// The page where the user enters the API keys, sets the hotkey and chooses the polishing prompt.
class GettingStartedPage final : public QWidget
{
public:
    // What is given by reference must outlive the page.
    GettingStartedPage(const MainWindowCallbacks &callbacks,
                       DeletionUndo &deletions,
                       APIKeyTutorialWindowController &tutorial,
                       HotKeyCaptureButton::KeyCharacters keyCharacters);

    // Fills the controls; what was typed and not saved is lost. Nothing is reported.
    void load(const AppConfig &config);
    void scrollToTop();

private:
    [[nodiscard]] QLayout *makeDocument();

    APIKeySection *m_apiKeySection;
    HotKeySection *m_hotKeySection;
    PromptSection *m_promptSection;
    QScrollArea *m_scrollView;
};
