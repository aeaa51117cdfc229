// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PromptSettings.h"

#include <QWidget>

class ClosureButton;
class DeletionUndo;
class PasteEnabledTextField;
class PasteEnabledTextView;
class QComboBox;
class QLayout;
class TextLabel;
struct MainWindowCallbacks;

// Where the user chooses the polishing prompt and writes prompts of their own.
class PromptSection final : public QWidget
{
public:
    // Both must outlive the section.
    PromptSection(const MainWindowCallbacks &callbacks, DeletionUndo &deletions);

    // Shows the stored prompts. An unknown selection becomes the clean prompt. Nothing is reported.
    void load(const PromptSettings &settings);

private:
    [[nodiscard]] QLayout *makeMenuRow();
    [[nodiscard]] QLayout *makeSaveRow();
    void configurePromptTextView();
    void reloadPromptMenu();
    void loadSelectedPrompt();
    void promptSelectionChanged();
    void addCustomPrompt();
    void deleteSelectedCustomPrompt();
    void restoreCustomPrompt(const PromptDefinition &prompt, qsizetype position);
    void select(const PromptDefinition &prompt);
    void saveSelectedCustomPrompt();
    [[nodiscard]] PromptDefinition selectedPrompt() const;
    // The end of the list when a built-in prompt is selected.
    [[nodiscard]] QList<PromptDefinition>::iterator selectedCustomPrompt();

    const MainWindowCallbacks &m_callbacks;
    DeletionUndo &m_deletions;
    PromptSettings m_promptSettings;
    QComboBox *m_promptMenu;
    PasteEnabledTextField *m_promptNameField;
    PasteEnabledTextView *m_promptTextView;
    ClosureButton *m_deleteButton;
    ClosureButton *m_saveButton;
    TextLabel *m_promptStatusLabel;
};
