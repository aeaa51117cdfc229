// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "BareWindow.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize(920, 680);

QWidget *makePage(qsizetype widgets)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setSpacing(0);
    for (qsizetype i = 0; i < widgets; ++i) {
        const auto text = u"第 %1 行文字"_s.arg(i);
        if (i % 2 == 0)
            layout->addWidget(new QLabel(text));
        else
            layout->addWidget(new QPushButton(text));
    }
    return page;
}

} // namespace

BareWindow::BareWindow(const QList<qsizetype> &pages)
    : m_pages(new QStackedLayout(this))
{
    for (const auto widgets : pages)
        m_pages->addWidget(makePage(widgets));
    resize(windowSize);
}

void BareWindow::setCurrentPage(int page)
{
    m_pages->setCurrentIndex(page);
}
