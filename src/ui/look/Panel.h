// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

// A card: a rounded, bordered background for one view.
class Panel final : public QWidget
{
public:
    explicit Panel(QWidget *content);

protected:
    void paintEvent(QPaintEvent *event) override;
};
