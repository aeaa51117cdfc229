// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

// The heading of one day in the transcript history.
class HistoryDateHeaderView final : public QWidget
{
public:
    // The title is also the accessible name.
    explicit HistoryDateHeaderView(const QString &title);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
