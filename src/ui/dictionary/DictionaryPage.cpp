// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictionaryPage.h"

#include "AccessibleRole.h"
#include "ClosureButton.h"
#include "DeletionUndo.h"
#include "DictionaryChipCloudView.h"
#include "InterfaceFont.h"
#include "MainWindowCallbacks.h"
#include "PasteEnabledTextField.h"
#include "TextLabel.h"
#include "ViewBuilders.h"

#include <QApplication>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace ViewBuilders;

namespace {

constexpr int addButtonWidth = 76;
constexpr int minCloudHeight = 260;

} // namespace

DictionaryPage::DictionaryPage(const MainWindowCallbacks &callbacks, DeletionUndo &deletions)
    : m_callbacks(callbacks)
    , m_deletions(deletions)
    , m_newTermField(new PasteEnabledTextField)
    , m_chipCloudView(new DictionaryChipCloudView(
          [this](const QString &term) { deletePersonalDictionaryTerm(term); }))
    , m_statusLabel(makeLabel({}, interfaceFont(12), SemanticColor::TertiaryLabel))
{
    auto *contentLayout = makeStack(24);
    contentLayout->setContentsMargins(32, 28, 32, 28);
    contentLayout->addWidget(makeTitleBlock(
        u"词库"_s,
        u"把常用专业词、英文名、人名和品牌名加入词库，让相似发音更倾向于识别成这些词。"_s));
    contentLayout->addWidget(makeTermsPanel(), 1);
    // The smallest window is a little less high than what the card needs.
    m_scrollView = makePageScrollView(contentLayout);
    auto *layout = makeStack(0);
    layout->addWidget(m_scrollView);
    setLayout(layout);
    updateDictionaryStatus();
}

QWidget *DictionaryPage::makeTermsPanel()
{
    auto *layout = makeStack(14);
    layout->addWidget(makeSectionHeader(
        u"添加新词"_s, u"添加后会立即保存到本机配置，并在下次语音识别时作为豆包热词使用。"_s));
    layout->addLayout(makeInputRow());
    layout->addWidget(makeBodyLabel(u"支持一次粘贴多个词，可以用换行、逗号或顿号分隔。不要添加“这个"
                                    u"”“没有”“好的”这类高频口语词；"
                                    u"点击词条右侧 × 可以删除。"_s));
    layout->addWidget(
        makeLabel(u"已添加词库"_s, interfaceFont(15, QFont::DemiBold), SemanticColor::Label));
    layout->addWidget(makeChipScrollView(), 1);
    layout->addWidget(m_statusLabel);
    return makePanel(layout);
}

QLayout *DictionaryPage::makeInputRow()
{
    m_newTermField->setPlaceholderText(u"输入一个新词，例如 DeepSeek、Claude Code、Cursor"_s);
    m_newTermField->setAccessibleName(u"添加新词"_s);
    m_newTermField->setFont(interfaceFont(14));
    connect(
        m_newTermField, &QLineEdit::returnPressed, this, [this] { addPersonalDictionaryTerms(); });
    auto *button = new ClosureButton(
        u"添加"_s, ClosureButton::Style::Primary, [this] { addPersonalDictionaryTerms(); });
    button->setFixedWidth(addButtonWidth);

    auto *row = makeRow(10);
    row->addWidget(m_newTermField, 1);
    row->addWidget(button);
    return row;
}

QWidget *DictionaryPage::makeChipScrollView()
{
    setAccessibleRole(*m_chipCloudView, QAccessible::Grouping, u"已添加词库"_s);
    auto *view = makeScrollView(m_chipCloudView);
    view->setMinimumHeight(minCloudHeight);
    connect(qApp, &QApplication::focusChanged, view, [this, view](QWidget *, QWidget *focused) {
        if (focused && focused->parentWidget() == m_chipCloudView)
            view->ensureWidgetVisible(focused, 0, 8);
    });
    return view;
}

void DictionaryPage::load(const PersonalDictionaryConfig &dictionary)
{
    m_newTermField->setText({}); // that cannot be undone
    if (dictionary != m_personalDictionary) {
        m_personalDictionary = dictionary;
        reloadDictionaryList();
    }
    updateDictionaryStatus();
}

void DictionaryPage::reloadDictionaryList()
{
    m_chipCloudView->setTerms(m_personalDictionary.terms);
}

void DictionaryPage::addPersonalDictionaryTerms()
{
    m_scrollView->ensureWidgetVisible(m_statusLabel);
    const auto added = PersonalDictionaryConfig::parse(m_newTermField->text());
    if (added.isEmpty()) {
        m_statusLabel->setText(u"请输入至少一个有效词。"_s);
        QApplication::beep();
        return;
    }
    const auto formerCount = m_personalDictionary.terms.size();
    m_newTermField->setText({}); // that cannot be undone
    setTerms(m_personalDictionary.terms + added);
    if (m_personalDictionary.terms.size() == formerCount)
        m_statusLabel->setText(u"这些词已经在词库里。"_s);
}

void DictionaryPage::deletePersonalDictionaryTerm(const QString &term)
{
    m_scrollView->ensureWidgetVisible(m_statusLabel);
    const auto former = m_personalDictionary.terms;
    QStringList remaining;
    for (const auto &kept : former) {
        if (kept.compare(term, Qt::CaseInsensitive) != 0)
            remaining.append(kept);
    }
    // What has been added since follows.
    m_deletions.add([this, former] { setTerms(former + m_personalDictionary.terms); });
    const bool isByKeyboard = m_chipCloudView->isAncestorOf(QApplication::focusWidget());
    setTerms(remaining);
    if (isByKeyboard && m_personalDictionary.terms.isEmpty())
        m_newTermField->setFocus();
}

void DictionaryPage::setTerms(const QStringList &terms)
{
    m_personalDictionary = PersonalDictionaryConfig(terms);
    reloadDictionaryList();
    updateDictionaryStatus(true);
    m_callbacks.onPersonalDictionaryChange(m_personalDictionary);
}

void DictionaryPage::updateDictionaryStatus(bool saved)
{
    const auto count = m_personalDictionary.terms.size();
    if (count == 0)
        m_statusLabel->setText(saved ? u"已清空词库。"_s : u"未配置个人词库。"_s);
    else
        m_statusLabel->setText(
            u"%1 %2 个词。最多保存 %3 个。"_s.arg(saved ? u"已保存"_s : u"当前"_s)
                .arg(count)
                .arg(PersonalDictionaryConfig::maxTerms));
}
