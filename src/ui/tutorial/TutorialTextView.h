// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBrowser>

// A read-only text whose links open in the browser, by mouse or by Tab and Return.
class TutorialTextView final : public QTextBrowser
{
public:
    TutorialTextView();

    // Replaces the whole text and goes to its start.
    void setBody(const QTextDocumentFragment &body);

protected:
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void colorLinks();
};
