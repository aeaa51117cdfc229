// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictionaryChipCloudView.h"

#include "DictionaryChipButton.h"
#include "InterfaceFont.h"
#include "TextLabel.h"
#include "ViewBuilders.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int minWidth = 240;
constexpr int horizontalSpacing = 8;
constexpr int verticalSpacing = 8;
constexpr int bottomMargin = 4;
constexpr int emptyHeight = 44;
constexpr int emptyLabelTop = 4;
constexpr int emptyLabelHeight = 36;

} // namespace

DictionaryChipCloudView::DictionaryChipCloudView()
    : m_emptyLabel(ViewBuilders::makeWrappingLabel(
        u"还没有添加词。可以先试试：Wrenfold、DeepSeek、Claude Code、Cursor。"_s,
        interfaceFont(13),
        SemanticColor::SecondaryLabel))
{
    m_emptyLabel->setParent(this);
    m_emptyLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto policy = sizePolicy();
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void DictionaryChipCloudView::setTerms(const QStringList &terms)
{
    if (terms == m_terms)
        return;
    m_terms = terms;
    const auto focused = focusedChip();
    const auto former = std::exchange(m_chipButtons, makeChips());
    m_emptyLabel->setVisible(terms.isEmpty());
    layoutChips();
    if (focused && !m_chipButtons.empty())
        m_chipButtons[std::min(*focused, m_chipButtons.size() - 1)]->setFocus();
    // Only now: hidden before, a chip would hand its focus to the next that goes. And one of them
    // may be the one whose press has brought us here.
    for (auto *chip : former) {
        chip->hide();
        chip->deleteLater();
    }
    updateGeometry();
}

int DictionaryChipCloudView::measuredHeight(int width) const
{
    const auto frames = chipFrames(width);
    return frames.empty() ? emptyHeight : frames.back().bottom() + 1 + bottomMargin;
}

QSize DictionaryChipCloudView::sizeHint() const
{
    return {minWidth, emptyHeight};
}

int DictionaryChipCloudView::heightForWidth(int width) const
{
    return measuredHeight(std::max(width, minWidth));
}

void DictionaryChipCloudView::resizeEvent(QResizeEvent *)
{
    layoutChips();
}

// A scroll view is not told of a height that changes while it is hidden.
void DictionaryChipCloudView::showEvent(QShowEvent *)
{
    updateGeometry();
}

std::vector<DictionaryChipButton *> DictionaryChipCloudView::makeChips()
{
    std::vector<DictionaryChipButton *> chips;
    for (const auto &term : m_terms) {
        auto *chip = new DictionaryChipButton(term, [this](const QString &pressed) {
            if (onDelete)
                onDelete(pressed);
        });
        chip->setParent(this);
        chip->show();
        chips.push_back(chip);
    }
    return chips;
}

std::optional<std::size_t> DictionaryChipCloudView::focusedChip() const
{
    const auto chip = std::ranges::find_if(m_chipButtons, &QWidget::hasFocus);
    if (chip == m_chipButtons.end())
        return {};
    return std::size_t(chip - m_chipButtons.begin());
}

std::vector<QRect> DictionaryChipCloudView::chipFrames(int width) const
{
    std::vector<QRect> frames;
    QPoint position;
    for (const auto *chip : m_chipButtons) {
        const auto size = chip->chipSize();
        if (position.x() > 0 && position.x() + size.width() > width)
            position = {0, position.y() + size.height() + verticalSpacing};
        frames.emplace_back(position, size);
        position.rx() += size.width() + horizontalSpacing;
    }
    return frames;
}

void DictionaryChipCloudView::layoutChips()
{
    const int lineWidth = std::max(width(), minWidth);
    m_emptyLabel->setGeometry(0, emptyLabelTop, lineWidth, emptyLabelHeight);
    const auto frames = chipFrames(lineWidth);
    for (std::size_t i = 0; i < frames.size(); ++i)
        m_chipButtons[i]->setGeometry(frames[i]);
}
