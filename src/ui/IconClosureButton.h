// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

#include <functional>

// A button of 24 by 24 that shows a symbol only and runs a stored callback. Its title is the tool
// tip and the accessible name.
class IconClosureButton final : public QAbstractButton
{
public:
    IconClosureButton(const QString &symbolName,
                      const QString &title,
                      std::function<void()> onClick = {});

    // May be empty.
    std::function<void()> onClick;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbolName;
};
