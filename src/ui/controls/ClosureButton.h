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
        // Looks like a link in a text: no border, underlined, left-aligned.
        Link,
    };

    explicit ClosureButton(const QString &title,
                           Style style = Style::Rounded,
                           std::function<void()> action = [] {});

    // Never empty.
    std::function<void()> onClick;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintLink();

    Style m_style;
};
