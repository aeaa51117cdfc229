// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"
#include "HotKeyCaptureButton.h"

class APIKeySection;
class HotKeySection;
class PromptSection;
class QScrollArea;

// The page where the user enters the API keys, sets the hotkey and chooses the polishing prompt.
// Its callbacks may be empty.
class GettingStartedPage final : public QWidget
{
public:
    explicit GettingStartedPage(HotKeyCaptureButton::KeyCharacters keyCharacters);

    // Fills the controls; what was typed and not saved is lost. Nothing is reported.
    void load(const AppConfig &config);
    void scrollToTop();

    // Called with both keys, trimmed and not empty.
    std::function<void(const QString &doubaoAPIKey, const QString &deepSeekAPIKey)> onAPIKeysSave;
    std::function<void(const HotKeyConfig &)> onHotKeyChange;
    // Called with whether a new hotkey is waited for, so that the current one can be pressed.
    std::function<void(bool isCapturing)> onHotKeyCaptureChange;
    // Called with the settings and the text of the prompt that is active now.
    std::function<void(const PromptSettings &, const QString &promptText)> onPromptSettingsChange;
    // Called with a tutorial's title and body when the user asks for it.
    std::function<void(const QString &title, const QString &body)> onShowTutorial;

private:
    [[nodiscard]] QWidget *makeDocument();
    void forwardCallbacks();

    APIKeySection *m_apiKeySection;
    HotKeySection *m_hotKeySection;
    PromptSection *m_promptSection;
    QScrollArea *m_scrollView;
};
