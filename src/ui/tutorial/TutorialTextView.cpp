// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TutorialTextView.h"

#include "ContextMenu.h"
#include "InterfaceFont.h"
#include "Palette.h"

#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>

using namespace Qt::StringLiterals;

TutorialTextView::TutorialTextView()
{
    setFont(interfaceFont(14));
    setFrameShape(NoFrame);
    viewport()->setAutoFillBackground(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUndoRedoEnabled(false);
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &QDesktopServices::openUrl);
}

void TutorialTextView::setBody(const QTextDocumentFragment &body)
{
    clear();
    textCursor().insertFragment(body);
    moveCursor(QTextCursor::Start);
    verticalScrollBar()->setValue(0);
}

void TutorialTextView::changeEvent(QEvent *event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colorLinks();
}

void TutorialTextView::contextMenuEvent(QContextMenuEvent *event)
{
    popUpContextMenu(*this,
                     event->globalPos(),
                     {{u"复制"_s, [this] { copy(); }}, {u"全选"_s, [this] { selectAll(); }}});
}

void TutorialTextView::colorLinks()
{
    QTextCharFormat color;
    color.setForeground(Palette::color(SemanticColor::Link));
    for (auto block = document()->begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const auto fragment = it.fragment();
            if (!fragment.charFormat().isAnchor())
                continue;
            QTextCursor cursor(block);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(color);
        }
}
