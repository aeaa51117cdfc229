// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class APIKeyTutorialWindowController;
class PasteEnabledSecureTextField;
class QBoxLayout;
class TextLabel;
struct MainWindowCallbacks;

// Where the user enters the two API keys.
class APIKeySection final : public QWidget
{
public:
    // Both must outlive the section. The tutorial window explains how to get a key.
    APIKeySection(const MainWindowCallbacks &callbacks, APIKeyTutorialWindowController &tutorial);

    // Shows the keys as they are stored, and whether both are there. Nothing is reported.
    void load(const QString &doubaoAPIKey, const QString &deepSeekAPIKey);

private:
    // What tells the block of one key from that of the other.
    struct KeyBlock
    {
        QString title;
        PasteEnabledSecureTextField *field;
        QString placeholder;
        QString linkTitle;
        QString tutorialTitle;
        QString (*tutorialText)();
    };

    [[nodiscard]] QBoxLayout *makeAPIKeyBlock(const KeyBlock &block);
    void saveAPIKeys();

    const MainWindowCallbacks &m_callbacks;
    APIKeyTutorialWindowController &m_tutorial;
    PasteEnabledSecureTextField *m_doubaoAPIKeyField;
    PasteEnabledSecureTextField *m_deepSeekAPIKeyField;
    TextLabel *m_apiStatusLabel;
};
