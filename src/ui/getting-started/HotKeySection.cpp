// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HotKeySection.h"

#include "ClosureButton.h"
#include "HotKeyWords.h"
#include "InterfaceFont.h"
#include "MainWindowCallbacks.h"
#include "TextLabel.h"
#include "ViewBuilders.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace ViewBuilders;

HotKeySection::HotKeySection(const MainWindowCallbacks &callbacks,
                             HotKeyCaptureButton::KeyCharacters keyCharacters)
    : m_callbacks(callbacks)
    , m_currentHotKeyLabel(
          makeWrappingLabel({}, interfaceFont(14, QFont::Medium), SemanticColor::Label))
    , m_captureButton(new HotKeyCaptureButton(std::move(keyCharacters)))
{
    m_captureButton->setFont(monospacedFont(17, QFont::DemiBold));
    m_captureButton->setFixedSize(190, 44);
    m_captureButton->onCapture = [this](const HotKeyConfig &hotKey) { changeHotKey(hotKey); };
    m_captureButton->onCapturingChange = callbacks.onHotKeyCaptureChange;
    auto *layout = makeStack(14);
    layout->addWidget(makeSectionHeader(u"2. 快捷键设置"_s, u"设置开始和停止录音的全局快捷键。"_s));
    layout->addWidget(m_currentHotKeyLabel);
    layout->addLayout(makeButtonRow());
    layout->addWidget(makeBodyLabel(
        u"点击快捷键按钮后，按组合键或单键。想用单独的 Command / Shift / Option / Control 时，按下后松开即可。修改后会立即保存。"_s));
    setLayout(layout);
}

void HotKeySection::load(const HotKeyConfig &hotKey)
{
    showHotKey(hotKey);
    m_captureButton->setHotKey(hotKey);
}

QLayout *HotKeySection::makeButtonRow()
{
    auto *resetButton = new ClosureButton(u"恢复默认"_s, ClosureButton::Style::Rounded, [this] {
        m_captureButton->setHotKey(HotKeyConfig());
        changeHotKey(HotKeyConfig());
    });
    resetButton->setFixedWidth(92);
    auto *row = makeRow(12);
    row->addWidget(m_captureButton);
    row->addWidget(resetButton);
    row->addStretch();
    return row;
}

void HotKeySection::showHotKey(const HotKeyConfig &hotKey)
{
    const auto words = hotKeyInWords(hotKey.displayName);
    m_currentHotKeyLabel->setText(u"当前快捷键："_s + hotKey.displayName);
    m_currentHotKeyLabel->setToolTip(words);
    m_currentHotKeyLabel->setAccessibleDescription(words);
}

void HotKeySection::changeHotKey(const HotKeyConfig &hotKey)
{
    showHotKey(hotKey);
    m_callbacks.onHotKeyChange(hotKey);
}
