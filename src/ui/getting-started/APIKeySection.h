// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class PasteEnabledSecureTextField;
class QBoxLayout;
class TextLabel;

// Where the user enters the two API keys.
class APIKeySection final : public QWidget
{
public:
    APIKeySection();

    // Shows the keys as they are stored, and whether both are there. Nothing is reported.
    void load(const QString &doubaoAPIKey, const QString &deepSeekAPIKey);

    // Called with both keys, trimmed, when the user saves them. Neither is empty.
    std::function<void(const QString &doubaoAPIKey, const QString &deepSeekAPIKey)> onAPIKeysSave;
    // Called when the user asks how to get a key.
    std::function<void(const QString &title, const QString &body)> onShowTutorial;

private:
    // What tells the block of one key from that of the other.
    struct KeyBlock
    {
        QString title;
        PasteEnabledSecureTextField *field;
        QString placeholder;
        QString linkTitle;
        QString tutorialTitle;
        QStringView tutorial;
    };

    [[nodiscard]] QBoxLayout *makeAPIKeyBlock(const KeyBlock &block);
    void saveAPIKeys();

    PasteEnabledSecureTextField *m_doubaoAPIKeyField;
    PasteEnabledSecureTextField *m_deepSeekAPIKeyField;
    TextLabel *m_apiStatusLabel;
};
