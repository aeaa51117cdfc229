// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "GettingStartedPage.h"

#include "APIKeySection.h"
#include "HotKeySection.h"
#include "PromptSection.h"
#include "ViewBuilders.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace ViewBuilders;

GettingStartedPage::GettingStartedPage(const MainWindowCallbacks &callbacks,
                                       DeletionUndo &deletions,
                                       APIKeyTutorialWindowController &tutorial,
                                       HotKeyCaptureButton::KeyCharacters keyCharacters)
    : m_apiKeySection(new APIKeySection(callbacks, tutorial))
    , m_hotKeySection(new HotKeySection(callbacks, std::move(keyCharacters)))
    , m_promptSection(new PromptSection(callbacks, deletions))
    , m_scrollView(makePageScrollView(makeDocument()))
{
    auto *layout = makeStack(0);
    layout->addWidget(m_scrollView);
    setLayout(layout);
}

void GettingStartedPage::load(const AppConfig &config)
{
    m_apiKeySection->load(config.volcengine.apiKey, config.deepSeek.apiKey);
    m_hotKeySection->load(config.hotKey);
    m_promptSection->load(config.prompts);
}

void GettingStartedPage::scrollToTop()
{
    m_scrollView->verticalScrollBar()->setValue(0);
}

QLayout *GettingStartedPage::makeDocument()
{
    auto *layout = makeStack(18);
    layout->setContentsMargins(32, 28, 32, 28);
    layout->addWidget(makeTitleBlock(
        u"开始使用"_s, u"按顺序完成 API、快捷键和转写指令设置。配置只保存在本机。"_s));
    layout->addWidget(makePanel(m_apiKeySection));
    layout->addWidget(makePanel(m_hotKeySection));
    layout->addWidget(makePanel(m_promptSection));
    layout->addStretch();
    return layout;
}
