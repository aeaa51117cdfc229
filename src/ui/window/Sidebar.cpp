// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Sidebar.h"

#include "AppRuntime.h"
#include "InterfaceFont.h"
#include "Palette.h"
#include "SidebarItemButton.h"
#include "TextLabel.h"
#include "ViewBuilders.h"

#include <QIcon>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int sidebarWidth = 208;
constexpr int headerMargin = 22;
constexpr int navigationMargin = 14;
constexpr QRect iconRect(headerMargin, 28, 24, 24);
constexpr qreal iconRadius = 6;

QLayout *makeHeader()
{
    auto *name = ViewBuilders::makeLabel(
        AppRuntime::appName, interfaceFont(18, QFont::Bold), SemanticColor::Label);
    auto *caption = ViewBuilders::makeLabel(
        u"语音输入助手"_s, interfaceFont(12), SemanticColor::SecondaryLabel);
    name->setMinimumHeight(iconRect.height());
    name->setContentsMargins(iconRect.width() + 8, 0, 0, 0);

    auto *header = new QVBoxLayout;
    header->setContentsMargins(headerMargin, iconRect.top(), 18, 0);
    header->setSpacing(6);
    header->addWidget(name);
    header->addWidget(caption);
    return header;
}

} // namespace

Sidebar::Sidebar(const QList<MainWindowItem> &items,
                 const std::function<void(MainWindowPage)> &onClick)
{
    setFixedWidth(sidebarWidth);
    auto *navigation = new QVBoxLayout;
    navigation->setContentsMargins(navigationMargin, 0, navigationMargin, 0);
    navigation->setSpacing(7);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(28);
    layout->addLayout(makeHeader());
    layout->addLayout(navigation);
    layout->addStretch();

    for (const auto &item : items) {
        const auto click = [onClick, page = item.page] { onClick(page); };
        auto *button = new SidebarItemButton(item.title, item.symbolName, click);
        m_items.emplace(item.page, button);
        navigation->addWidget(button);
    }
}

void Sidebar::setSelectedPage(MainWindowPage page)
{
    for (const auto &[itemPage, item] : m_items)
        item->setChecked(itemPage == page);
}

void Sidebar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Palette::color(SemanticColor::WindowBackground, 0.72));
    // The icon is dark: a rim sets it off from a dark ground.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Palette::color(SemanticColor::SecondaryLabel));
    painter.drawRoundedRect(iconRect.adjusted(-1, -1, 1, 1), iconRadius, iconRadius);
    QIcon(u":/icons/Wrenfold.svg"_s).paint(&painter, iconRect);
}
