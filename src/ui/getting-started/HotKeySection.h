// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyCaptureButton.h"

class TextLabel;

// Where the user sets the global hotkey.
class HotKeySection final : public QWidget
{
public:
    explicit HotKeySection(HotKeyCaptureButton::KeyCharacters keyCharacters);

    // Shows the stored hotkey. Nothing is reported.
    void load(const HotKeyConfig &hotKey);

    // Called with each hotkey that the user sets.
    std::function<void(const HotKeyConfig &)> onHotKeyChange;
    // Called with whether a new hotkey is waited for, so that the current one can be pressed.
    std::function<void(bool isCapturing)> onHotKeyCaptureChange;

private:
    [[nodiscard]] QLayout *makeButtonRow();
    void showHotKey(const HotKeyConfig &hotKey);
    void changeHotKey(const HotKeyConfig &hotKey);

    TextLabel *m_currentHotKeyLabel;
    HotKeyCaptureButton *m_captureButton;
};
