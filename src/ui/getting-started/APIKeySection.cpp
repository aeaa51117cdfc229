// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "APIKeySection.h"

#include "APIKeyConfigurationWindowController.h"
#include "APIKeyTutorialWindowController.h"
#include "ClosureButton.h"
#include "InterfaceFont.h"
#include "MainWindowCallbacks.h"
#include "PasteEnabledSecureTextField.h"
#include "TextLabel.h"
#include "ViewBuilders.h"

#include <QApplication>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace ViewBuilders;

APIKeySection::APIKeySection(const MainWindowCallbacks &callbacks,
                             APIKeyTutorialWindowController &tutorial)
    : m_callbacks(callbacks)
    , m_tutorial(tutorial)
    , m_doubaoAPIKeyField(new PasteEnabledSecureTextField)
    , m_deepSeekAPIKeyField(new PasteEnabledSecureTextField)
    , m_apiStatusLabel(makeWrappingLabel({}, interfaceFont(12), SemanticColor::SecondaryLabel))
{
    auto *saveButton =
        new ClosureButton(u"保存 API"_s, ClosureButton::Style::Primary, [this] { saveAPIKeys(); });
    saveButton->setFixedWidth(96);
    auto *layout = makeStack(14);
    layout->addWidget(makeSectionHeader(
        u"1. API 配置"_s,
        u"填入自己的豆包语音和 DeepSeek Key。两个 Key 都填好后再录一句短语音测试。"_s));
    layout->addLayout(makeAPIKeyBlock({u"豆包语音 API Key"_s,
                                       m_doubaoAPIKeyField,
                                       u"粘贴豆包语音 API Key"_s,
                                       u"获取豆包 API 的 Wrenfold 教程"_s,
                                       u"获取豆包语音 API Key"_s,
                                       APIKeyConfigurationWindowController::doubaoTutorialText}));
    layout->addLayout(makeAPIKeyBlock({u"DeepSeek API Key"_s,
                                       m_deepSeekAPIKeyField,
                                       u"粘贴 DeepSeek API Key"_s,
                                       u"获取 DeepSeek API 的 Wrenfold 教程"_s,
                                       u"获取 DeepSeek API Key"_s,
                                       APIKeyConfigurationWindowController::deepSeekTutorialText}));
    layout->addWidget(saveButton);
    layout->addWidget(m_apiStatusLabel);
    setLayout(layout);
}

void APIKeySection::load(const QString &doubaoAPIKey, const QString &deepSeekAPIKey)
{
    for (const auto &[field, key] : {std::pair(m_doubaoAPIKeyField, doubaoAPIKey),
                                     std::pair(m_deepSeekAPIKeyField, deepSeekAPIKey)})
        if (field->text() != key)
            field->setText(key);
    const bool hasBoth = !doubaoAPIKey.trimmed().isEmpty() && !deepSeekAPIKey.trimmed().isEmpty();
    m_apiStatusLabel->setColor(SemanticColor::SecondaryLabel);
    m_apiStatusLabel->setText(hasBoth ? u"当前已配置 API Key。需要更换时直接覆盖保存。"_s
                                      : u"API Key 只保存在本机，不会被打进分享版 App。"_s);
}

QBoxLayout *APIKeySection::makeAPIKeyBlock(const KeyBlock &block)
{
    auto *title = makeLabel(block.title, interfaceFont(13, QFont::Medium), SemanticColor::Label);
    title->setBuddy(block.field);
    block.field->setPlaceholderText(block.placeholder);
    block.field->setFont(interfaceFont(14));
    block.field->setFixedHeight(32);
    auto *layout = makeStack(0);
    layout->addWidget(title);
    layout->addSpacing(8);
    layout->addWidget(block.field);
    layout->addSpacing(6);
    layout->addWidget(makeBodyLabel(u"不知道从哪里拿 Key？点击下方教程，会一步一步告诉你。"_s));
    layout->addSpacing(5);
    layout->addWidget(makeLinkButton(
        block.linkTitle, [this, title = block.tutorialTitle, text = block.tutorialText] {
            m_tutorial.show(title, text());
        }));
    return layout;
}

void APIKeySection::saveAPIKeys()
{
    const auto doubaoAPIKey = m_doubaoAPIKeyField->text().trimmed();
    const auto deepSeekAPIKey = m_deepSeekAPIKeyField->text().trimmed();
    if (doubaoAPIKey.isEmpty() || deepSeekAPIKey.isEmpty()) {
        m_apiStatusLabel->setColor(SemanticColor::Failure);
        m_apiStatusLabel->setText(u"请把两个 API Key 都填好。"_s);
        QApplication::beep();
        return;
    }
    m_callbacks.onAPIKeysSave(doubaoAPIKey, deepSeekAPIKey);
    m_apiStatusLabel->setColor(SemanticColor::Success);
    m_apiStatusLabel->setText(u"已保存，可以开始使用。"_s);
}
