// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

// A disc of 36 by 36 in the pale accent colour with a symbol of 17 by 17 in its middle.
class SymbolBadge final : public QWidget
{
public:
    explicit SymbolBadge(QString symbolName);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbolName;
};
