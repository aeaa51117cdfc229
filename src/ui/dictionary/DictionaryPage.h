// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PersonalDictionaryConfig.h"

#include <QWidget>

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
    // The callbacks must outlive the page.
    explicit DictionaryPage(const MainWindowCallbacks &callbacks);

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
    void updateDictionaryStatus(bool saved = false);

    const MainWindowCallbacks &m_callbacks;
    PersonalDictionaryConfig m_personalDictionary;
    PasteEnabledTextField *m_newTermField;
    DictionaryChipCloudView *m_chipCloudView;
    TextLabel *m_statusLabel;
    QScrollArea *m_scrollView = nullptr;
};
