// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyConfig.h"

#include <QPushButton>

#include <functional>
#include <map>
#include <optional>

// Shows the hotkey; once clicked, the next key combination, or a modifier key pressed and released
// on its own, becomes the new one. Escape leaves it as it is.
class HotKeyCaptureButton final : public QPushButton
{
public:
    // What a key, by its virtual key code, types on the current layout without modifiers; empty
    // when it types nothing.
    using KeyCharacters = std::function<QString(quint32 keyCode)>;

    explicit HotKeyCaptureButton(KeyCharacters keyCharacters, QWidget *parent = nullptr);

    // Sets the hotkey whose stored name is shown; while capturing it shows once that is abandoned.
    void setHotKey(const HotKeyConfig &hotKey);
    // Waits for a new hotkey and takes the keyboard focus for it.
    void beginCapture();

    // Never empty. Called with each new hotkey. The button shows it already.
    std::function<void(const HotKeyConfig &)> onCapture = [](const HotKeyConfig &) {};
    // Never empty. Called with true when the button waits for a hotkey in the active window, and
    // with false when it does so no more: before onCapture, and whenever it is hidden or the window
    // is left.
    std::function<void(bool)> onCapturingChange = [](bool) {};

protected:
    bool event(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void handleKeyDown(const QKeyEvent &event);
    void handleFlagsChanged(quint32 keyCode);
    void endCapture();
    void finishCapture(const HotKeyConfig &hotKey);
    void showTitle(const QString &title);
    void showWords();
    void reportCapturing();
    [[nodiscard]] bool isLevelShiftDown() const;
    [[nodiscard]] quint32 modifierFlags() const;

    KeyCharacters m_keyCharacters;
    bool m_isCapturing = false;
    bool m_isReported = false; // what onCapturingChange was last told
    QString m_currentDisplayName = HotKeyConfig().displayName;
    std::optional<HotKeyConfig> m_pendingModifierHotKey;
    std::map<quint32, int> m_modifiersDown; // Qt's keys by virtual key code
    quint32 m_capturedKey = 0; // scan code of the key that ended a capture, while it may repeat
};
