// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PromptSection.h"

#include "ClosureButton.h"
#include "DeletionUndo.h"
#include "InterfaceFont.h"
#include "MainWindowCallbacks.h"
#include "PasteEnabledTextField.h"
#include "PasteEnabledTextView.h"
#include "PromptLibrary.h"
#include "PromptMenu.h"
#include "Text.h"
#include "TextLabel.h"
#include "ViewBuilders.h"

#include <QApplication>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace ViewBuilders;

namespace {

constexpr auto customPrefix = "custom."_L1;

// Qt's own plain text has blanks in place of no-break spaces.
QString textOf(const QPlainTextEdit &view)
{
    return view.document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, u'\n')
        .replace(QChar::LineSeparator, u'\n');
}

ClosureButton *makeButton(const QString &title,
                          int width,
                          std::function<void()> action,
                          ClosureButton::Style style = ClosureButton::Style::Rounded)
{
    auto *button = new ClosureButton(title, style, std::move(action));
    button->setFixedWidth(width);
    return button;
}

} // namespace

PromptSection::PromptSection(const MainWindowCallbacks &callbacks, DeletionUndo &deletions)
    : m_callbacks(callbacks)
    , m_deletions(deletions)
    , m_promptMenu(new PromptMenu)
    , m_promptNameField(new PasteEnabledTextField)
    , m_promptTextView(new PasteEnabledTextView)
    , m_deleteButton(makeButton(u"删除"_s, 72, [this] { deleteSelectedCustomPrompt(); }))
    , m_saveButton(makeButton(
          u"保存指令"_s, 92, [this] { saveSelectedCustomPrompt(); }, ClosureButton::Style::Primary))
    , m_promptStatusLabel(makeWrappingLabel({}, interfaceFont(12), SemanticColor::TertiaryLabel))
{
    m_promptNameField->setAccessibleName(u"指令名称"_s);
    m_promptNameField->setPlaceholderText(u"指令名称"_s);
    m_promptNameField->setFont(interfaceFont(14));
    m_promptNameField->setFixedHeight(28);
    configurePromptTextView();
    auto *layout = makeStack(14);
    layout->addWidget(makeSectionHeader(
        u"3. 转写指令"_s, u"选择日常整理、口播文案、结构化表达，或新增自己的指令。"_s));
    layout->addLayout(makeMenuRow());
    layout->addWidget(m_promptNameField);
    layout->addWidget(m_promptTextView);
    layout->addLayout(makeSaveRow());
    setLayout(layout);
}

void PromptSection::load(const PromptSettings &settings)
{
    auto known = settings;
    const auto prompts = PromptLibrary::allPrompts(known);
    if (std::ranges::find(prompts, known.selectedID, &PromptDefinition::id) == prompts.end())
        known.selectedID = PromptLibrary::cleanID;
    if (m_promptMenu->count() == 0 || known != m_promptSettings) {
        m_promptSettings = known;
        reloadPromptMenu();
    }
    loadSelectedPrompt();
}

QLayout *PromptSection::makeMenuRow()
{
    // Its accessible name is the chosen prompt.
    m_promptMenu->setAccessibleDescription(u"转写指令"_s);
    m_promptMenu->setFixedWidth(220);
    connect(m_promptMenu, &QComboBox::activated, this, &PromptSection::promptSelectionChanged);
    auto *row = makeRow(10);
    row->addWidget(m_promptMenu);
    row->addWidget(makeButton(u"新增指令"_s, 92, [this] { addCustomPrompt(); }));
    row->addWidget(m_deleteButton);
    row->addStretch();
    return row;
}

QLayout *PromptSection::makeSaveRow()
{
    auto *row = makeRow(12);
    row->addWidget(m_saveButton);
    row->addWidget(m_promptStatusLabel, 1);
    return row;
}

void PromptSection::configurePromptTextView()
{
    m_promptTextView->setAccessibleName(u"指令内容"_s);
    m_promptTextView->setFont(interfaceFont(13));
    m_promptTextView->setFixedHeight(230);
}

void PromptSection::reloadPromptMenu()
{
    m_promptMenu->clear();
    for (const auto &prompt : PromptLibrary::allPrompts(m_promptSettings))
        m_promptMenu->addItem(prompt.name, prompt.id);
    m_promptMenu->setCurrentIndex(std::max(0, m_promptMenu->findData(m_promptSettings.selectedID)));
}

void PromptSection::loadSelectedPrompt()
{
    const auto selected = selectedPrompt();
    const bool isCustom = selected.id.startsWith(customPrefix);
    if (m_promptNameField->text() != selected.name)
        m_promptNameField->setText(selected.name);
    m_promptNameField->setReadOnly(!isCustom);
    m_promptTextView->setEditable(isCustom);
    m_deleteButton->setDead(!isCustom);
    m_saveButton->setDead(!isCustom);
    const auto text =
        selected.text.trimmed().isEmpty() ? PromptLibrary::cleanPrompt().text : selected.text;
    if (textOf(*m_promptTextView) != text)
        m_promptTextView->setPlainText(text);
    m_promptTextView->moveCursor(QTextCursor::Start);
    m_promptStatusLabel->setText(
        isCustom ? u"当前使用自定义指令。修改后点“保存指令”生效。"_s
                 : u"当前使用内置指令。可以复制查看；点“新增指令”可复制一份后编辑。"_s);
}

void PromptSection::promptSelectionChanged()
{
    const auto id = m_promptMenu->currentData();
    if (!id.isValid())
        return;
    m_promptSettings.selectedID = id.toString();
    loadSelectedPrompt();
    m_callbacks.onPromptSettingsChange(m_promptSettings, selectedPrompt().text);
}

void PromptSection::addCustomPrompt()
{
    const auto selected = selectedPrompt();
    const PromptDefinition copy{.id = customPrefix + newUuidText(),
                                .name = selected.name + u"副本"_s,
                                .text = selected.text};
    m_promptSettings.customPrompts.append(copy);
    select(copy);
}

void PromptSection::deleteSelectedCustomPrompt()
{
    const auto selected = selectedCustomPrompt();
    if (selected == m_promptSettings.customPrompts.end()) {
        QApplication::beep();
        return;
    }
    const auto position = selected - m_promptSettings.customPrompts.begin();
    m_deletions.add(
        [this, prompt = *selected, position] { restoreCustomPrompt(prompt, position); });
    m_promptSettings.customPrompts.erase(selected);
    select(PromptLibrary::cleanPrompt());
}

void PromptSection::restoreCustomPrompt(const PromptDefinition &prompt, qsizetype position)
{
    auto &prompts = m_promptSettings.customPrompts;
    prompts.insert(std::min(position, prompts.size()), prompt);
    select(prompt);
}

void PromptSection::select(const PromptDefinition &prompt)
{
    m_promptSettings.selectedID = prompt.id;
    reloadPromptMenu();
    loadSelectedPrompt();
    m_callbacks.onPromptSettingsChange(m_promptSettings, prompt.text);
}

void PromptSection::saveSelectedCustomPrompt()
{
    const auto selected = selectedCustomPrompt();
    if (selected == m_promptSettings.customPrompts.end()) {
        QApplication::beep();
        return;
    }
    const auto name = m_promptNameField->text().trimmed();
    const auto text = textOf(*m_promptTextView).trimmed();
    if (name.isEmpty() || text.isEmpty()) {
        m_promptStatusLabel->setText(u"名称和指令内容都不能为空。"_s);
        QApplication::beep();
        return;
    }
    selected->name = name;
    selected->text = text;
    reloadPromptMenu();
    loadSelectedPrompt();
    m_promptStatusLabel->setText(u"已保存并设为当前整理指令。"_s);
    m_callbacks.onPromptSettingsChange(m_promptSettings, text);
}

PromptDefinition PromptSection::selectedPrompt() const
{
    return PromptLibrary::selectedPrompt(m_promptSettings, PromptLibrary::cleanPrompt().text);
}

QList<PromptDefinition>::iterator PromptSection::selectedCustomPrompt()
{
    return std::ranges::find(
        m_promptSettings.customPrompts, m_promptSettings.selectedID, &PromptDefinition::id);
}
