// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PersonalDictionaryConfig.h"

#include <QWidget>

#include <functional>

class DictionaryChipCloudView;
class PasteEnabledTextField;
class QScrollArea;
class TextLabel;

// The page on which the personal dictionary grows: terms are added as free text and deleted by
// their chips. It keeps a working copy and reports every change of it.
class DictionaryPage final : public QWidget
{
public:
    DictionaryPage();

    // Shows a dictionary and empties the field. Reports nothing.
    void load(const PersonalDictionaryConfig &dictionary);
    // Shows the chips of the working copy.
    void reloadDictionaryList();

    // Called with the whole dictionary after the user has added or deleted terms, also when that
    // changed nothing. May be empty.
    std::function<void(const PersonalDictionaryConfig &)> onPersonalDictionaryChange;

private:
    [[nodiscard]] QWidget *makeTermsPanel();
    [[nodiscard]] QLayout *makeInputRow();
    [[nodiscard]] QWidget *makeChipScrollView();
    void addPersonalDictionaryTerms();
    void deletePersonalDictionaryTerm(const QString &term);
    void updateDictionaryStatus(bool saved = false);
    void report() const;

    PersonalDictionaryConfig m_personalDictionary;
    PasteEnabledTextField *m_newTermField;
    DictionaryChipCloudView *m_chipCloudView;
    TextLabel *m_statusLabel;
    QScrollArea *m_scrollView = nullptr;
};
