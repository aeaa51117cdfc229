// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

#include <functional>

// One line of the sidebar: a symbol and a title. It is checked while its page is shown; a click
// does not check it but runs the callback.
class SidebarItemButton final : public QAbstractButton
{
public:
    SidebarItemButton(const QString &title, QString symbolName, std::function<void()> onClick);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void nextCheckState() override {}
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbolName;
};
