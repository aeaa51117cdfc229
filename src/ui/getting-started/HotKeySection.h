// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyCaptureButton.h"

class TextLabel;
struct MainWindowCallbacks;

// Where the user sets the global hotkey.
class HotKeySection final : public QWidget
{
public:
    // The callbacks must outlive the section.
    HotKeySection(const MainWindowCallbacks &callbacks,
                  HotKeyCaptureButton::KeyCharacters keyCharacters);

    // Shows the stored hotkey. Nothing is reported.
    void load(const HotKeyConfig &hotKey);

private:
    [[nodiscard]] QLayout *makeButtonRow();
    void showHotKey(const HotKeyConfig &hotKey);
    void changeHotKey(const HotKeyConfig &hotKey);

    const MainWindowCallbacks &m_callbacks;
    TextLabel *m_currentHotKeyLabel;
    HotKeyCaptureButton *m_captureButton;
};
