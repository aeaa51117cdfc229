// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTextDocumentFragment>

#include <memory>

class RegularWindow;
class TextLabel;
class TutorialTextView;

// The window that explains how to get an API key. It is built when first shown, and kept until it
// is released.
class APIKeyTutorialWindowController final
{
public:
    APIKeyTutorialWindowController();
    ~APIKeyTutorialWindowController();
    APIKeyTutorialWindowController(const APIKeyTutorialWindowController &) = delete;
    APIKeyTutorialWindowController &operator=(const APIKeyTutorialWindowController &) = delete;

    // Shows a tutorial, from its start, in the middle of the screen and in front. The body may hold
    // links written as "[label](address)".
    void show(const QString &title, const QString &body);

    [[nodiscard]] bool isVisible() const;
    // Gives the window's memory back, unless the window is visible.
    void release();

    // The text as shown: of a link with an http or https address only the label is left, which
    // opens the address if that is a valid URL.
    [[nodiscard]] static QTextDocumentFragment attributedTutorialBody(const QString &body);

private:
    void buildWindow();

    std::unique_ptr<RegularWindow> m_window;
    TextLabel *m_titleLabel = nullptr;
    TutorialTextView *m_textView = nullptr;
};
