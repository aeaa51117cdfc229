// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PersonalDictionaryConfig.h"

#include <QWidget>

class DeletionUndo;
class DictionaryChipCloudView;
class PasteEnabledTextField;
class QScrollArea;
class TextLabel;
struct MainWindowCallbacks;

// The page on which the personal dictionary grows: terms are added as free text and deleted by
// their chips. It keeps a working copy and reports every change of it.
class DictionaryPage final : public QWidget
{
public:
    // Both must outlive the page.
    DictionaryPage(const MainWindowCallbacks &callbacks, DeletionUndo &deletions);

    // Shows a dictionary and empties the field. Reports nothing.
    void load(const PersonalDictionaryConfig &dictionary);
    // Shows the chips of the working copy.
    void reloadDictionaryList();

private:
    [[nodiscard]] QWidget *makeTermsPanel();
    [[nodiscard]] QLayout *makeInputRow();
    [[nodiscard]] QWidget *makeChipScrollView();
    void addPersonalDictionaryTerms();
    void deletePersonalDictionaryTerm(const QString &term);
    void setTerms(const QStringList &terms);
    void updateDictionaryStatus(bool saved = false);

    const MainWindowCallbacks &m_callbacks;
    DeletionUndo &m_deletions;
    PersonalDictionaryConfig m_personalDictionary;
    PasteEnabledTextField *m_newTermField;
    DictionaryChipCloudView *m_chipCloudView;
    TextLabel *m_statusLabel;
    QScrollArea *m_scrollView = nullptr;
};
