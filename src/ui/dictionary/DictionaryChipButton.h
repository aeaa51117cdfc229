// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

#include <functional>

// A pill with a term of the dictionary, which a press deletes. Terms of every script and length are
// shown as they are written, those that are too long without their end.
class DictionaryChipButton final : public QAbstractButton
{
public:
    // onDelete is called with the term by a press.
    DictionaryChipButton(const QString &term, std::function<void(const QString &term)> onDelete);

    [[nodiscard]] const QString &term() const;
    // 30 high and between 58 and 220 wide.
    [[nodiscard]] QSize chipSize() const;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintPill(QPainter &painter) const;

    std::function<void(const QString &term)> m_onDelete;
    QString m_term;
    QString m_shownTitle;
    QSize m_chipSize;
};
