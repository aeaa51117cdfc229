// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class DictionaryChipButton;
class TextLabel;

// The dictionary's terms as chips in lines that wrap, or a hint while there are none. Its height
// depends on its width.
class DictionaryChipCloudView final : public QWidget
{
public:
    DictionaryChipCloudView();

    // Called with the term whose chip was pressed. May be empty.
    std::function<void(const QString &term)> onDelete;

    // Shows these terms, in order. The keyboard focus stays at its place in the row of chips, so
    // that after a deletion the next chip has it.
    void setTerms(const QStringList &terms);
    // The height that the chips take in this width.
    [[nodiscard]] int measuredHeight(int width) const;

    // Whatever it shows: a scroll view around it asks for no more room when there are more terms.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    [[nodiscard]] std::vector<DictionaryChipButton *> makeChips();
    [[nodiscard]] std::vector<QRect> chipFrames(int width) const;
    [[nodiscard]] std::optional<std::size_t> focusedChip() const;
    void layoutChips();

    QStringList m_terms;
    std::vector<DictionaryChipButton *> m_chipButtons;
    TextLabel *m_emptyLabel;
};
