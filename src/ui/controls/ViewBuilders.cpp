// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ViewBuilders.h"

#include "ClosureButton.h"
#include "InterfaceFont.h"
#include "Panel.h"
#include "SymbolBadge.h"
#include "TextLabel.h"
#include "ThinScrollBar.h"

#include <QScrollArea>
#include <QVBoxLayout>

namespace {

QWidget *makeHeading(const QString &title, int titleSize, const QString &subtitle, int gap)
{
    auto *layout = ViewBuilders::makeStack(gap);
    layout->addWidget(ViewBuilders::makeLabel(
        title, interfaceFont(titleSize, QFont::DemiBold), SemanticColor::Label));
    layout->addWidget(ViewBuilders::makeBodyLabel(subtitle));
    auto *block = new QWidget;
    block->setLayout(layout);
    return block;
}

} // namespace

QVBoxLayout *ViewBuilders::makeStack(int spacing)
{
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    return layout;
}

QHBoxLayout *ViewBuilders::makeRow(int spacing)
{
    auto *layout = new QHBoxLayout;
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    return layout;
}

QWidget *ViewBuilders::makeTitleBlock(const QString &title, const QString &subtitle)
{
    return makeHeading(title, 28, subtitle, 8);
}

QWidget *ViewBuilders::makeSectionHeader(const QString &title, const QString &subtitle)
{
    return makeHeading(title, 18, subtitle, 6);
}

QWidget *ViewBuilders::makePanel(QWidget *content)
{
    return new Panel(content);
}

QWidget *ViewBuilders::makePanel(QLayout *content)
{
    auto *view = new QWidget;
    view->setLayout(content);
    return makePanel(view);
}

TextLabel *ViewBuilders::makeLabel(const QString &text, const QFont &font, SemanticColor color)
{
    return new TextLabel(text, font, color);
}

TextLabel *
ViewBuilders::makeWrappingLabel(const QString &text, const QFont &font, SemanticColor color)
{
    auto *label = makeLabel(text, font, color);
    label->setWordWrap(true);
    return label;
}

TextLabel *ViewBuilders::makeBodyLabel(const QString &text)
{
    return makeWrappingLabel(text, interfaceFont(13), SemanticColor::SecondaryLabel);
}

ClosureButton *ViewBuilders::makeLinkButton(const QString &title, std::function<void()> action)
{
    return new ClosureButton(title, ClosureButton::Style::Link, std::move(action));
}

QWidget *ViewBuilders::makeSymbolBadge(const QString &symbolName)
{
    return new SymbolBadge(symbolName);
}

QScrollArea *ViewBuilders::makeScrollView(QWidget *document)
{
    auto *view = new QScrollArea;
    view->setFrameShape(QFrame::NoFrame);
    // What it holds takes the focus, and is scrolled to.
    view->setFocusPolicy(Qt::NoFocus);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setWidgetResizable(true);
    view->setWidget(document);
    view->viewport()->setAutoFillBackground(false);
    document->setAutoFillBackground(false);
    return view;
}

QScrollArea *ViewBuilders::makePageScrollView(QLayout *page)
{
    page->setContentsMargins(page->contentsMargins() - QMargins(0, 0, ThinScrollBar::extent, 0));
    auto *document = new QWidget;
    document->setLayout(page);
    auto *view = makeScrollView(document);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    return view;
}
