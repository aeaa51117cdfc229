// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class DictionaryChipButton;
class TextLabel;

// The dictionary's terms as chips in lines that wrap, or a hint while there are none. Its height
// depends on its width.
class DictionaryChipCloudView final : public QWidget
{
public:
    // Called with the term whose chip was pressed.
    explicit DictionaryChipCloudView(std::function<void(const QString &term)> onDelete);

    // Shows these terms, in order. When the chip that has the keyboard focus goes, the next one
    // gets it.
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
    [[nodiscard]] DictionaryChipButton *makeChip(const QString &term);
    [[nodiscard]] std::vector<QRect> chipFrames(int width) const;
    void focusChip(std::ptrdiff_t position);
    void layoutChips();

    std::function<void(const QString &term)> m_onDelete;
    std::vector<DictionaryChipButton *> m_chipButtons;
    TextLabel *m_emptyLabel;
};
