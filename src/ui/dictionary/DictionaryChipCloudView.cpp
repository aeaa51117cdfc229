// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictionaryChipCloudView.h"

#include "DictionaryChipButton.h"
#include "InterfaceFont.h"
#include "TextLabel.h"
#include "ViewBuilders.h"

#include <QMultiHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int minCloudWidth = 240;
constexpr int horizontalSpacing = 8;
constexpr int verticalSpacing = 8;
constexpr int bottomMargin = 4;
constexpr int emptyHeight = 44;
constexpr int emptyLabelTop = 4;
constexpr int emptyLabelHeight = 36;

} // namespace

DictionaryChipCloudView::DictionaryChipCloudView(std::function<void(const QString &)> onDelete)
    : m_onDelete(std::move(onDelete))
    , m_emptyLabel(ViewBuilders::makeWrappingLabel(
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
    const auto focused = std::ranges::find_if(m_chipButtons, &QWidget::hasFocus);
    const auto focusedPosition = focused - m_chipButtons.begin();
    // Chips that stay are kept: a screen reader is told of each new one.
    QMultiHash<QString, DictionaryChipButton *> former;
    for (auto *chip : std::exchange(m_chipButtons, {}))
        former.insert(chip->term(), chip);
    for (const auto &term : terms) {
        auto *kept = former.take(term);
        m_chipButtons.push_back(kept ? kept : makeChip(term));
    }
    for (std::size_t i = 1; i < m_chipButtons.size(); ++i)
        setTabOrder(m_chipButtons[i - 1], m_chipButtons[i]);
    m_emptyLabel->setVisible(terms.isEmpty());
    layoutChips();
    for (auto *chip : std::as_const(former)) {
        if (chip->hasFocus())
            focusChip(focusedPosition);
        chip->hide();
        chip->deleteLater(); // it may be its press that has brought us here
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
    return {minCloudWidth, emptyHeight};
}

int DictionaryChipCloudView::heightForWidth(int width) const
{
    return measuredHeight(std::max(width, minCloudWidth));
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

DictionaryChipButton *DictionaryChipCloudView::makeChip(const QString &term)
{
    auto *chip = new DictionaryChipButton(term, m_onDelete);
    chip->setParent(this);
    chip->show();
    return chip;
}

void DictionaryChipCloudView::focusChip(std::ptrdiff_t position)
{
    if (!m_chipButtons.empty())
        m_chipButtons[std::min(std::size_t(position), m_chipButtons.size() - 1)]->setFocus();
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
    const int lineWidth = std::max(width(), minCloudWidth);
    m_emptyLabel->setGeometry(0, emptyLabelTop, lineWidth, emptyLabelHeight);
    const auto frames = chipFrames(lineWidth);
    for (std::size_t i = 0; i < frames.size(); ++i)
        m_chipButtons[i]->setGeometry(frames[i]);
}
