// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

// A thin line between what is above and what is below.
class SeparatorLine final : public QWidget
{
public:
    SeparatorLine();

protected:
    void paintEvent(QPaintEvent *event) override;
};
