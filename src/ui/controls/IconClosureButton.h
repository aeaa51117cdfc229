// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

#include <functional>

// A button of 24 by 24 that shows a symbol only and runs a stored callback. Its title is the tool
// tip and the accessible name. The keyboard focus comes to it from what it stands in, to which it
// leaves the arrow keys.
class IconClosureButton final : public QAbstractButton
{
public:
    IconClosureButton(
        QString symbolName, const QString &title, std::function<void()> action = [] {});

    // Never empty.
    std::function<void()> onClick;

    // From 0 (invisible) to 1. Does not keep it from being used.
    void setOpacity(double opacity);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbolName;
    double m_opacity = 1;
};
