// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

#include <functional>

// A push button that runs a stored callback.
class ClosureButton final : public QPushButton
{
public:
    enum class Style {
        Rounded,
        // The same, filled: what a card is there for.
        Primary,
        // Looks like a link in a text: no border, underlined, left-aligned.
        Link,
    };

    explicit ClosureButton(
        const QString &title, Style style = Style::Rounded, std::function<void()> action = [] {});

    // Never empty.
    std::function<void()> onClick;

    // A dead button looks disabled. It still runs its callback, which says why by a beep.
    void setDead(bool isDead);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void initStyleOption(QStyleOptionButton *option) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    void paintLink();

    Style m_style;
    bool m_isDead = false;
};
