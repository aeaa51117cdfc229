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

Sidebar::Sidebar()
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

    const auto add =
        [this, navigation](MainWindowPage page, const QString &title, const QString &symbolName) {
            auto *item = new SidebarItemButton(title, symbolName, [this, page] { onClick(page); });
            m_items.emplace(page, item);
            navigation->addWidget(item);
        };
    add(MainWindowPage::GettingStarted, u"开始使用"_s, u"house"_s);
    add(MainWindowPage::Clipboard, u"剪贴板"_s, u"doc.on.clipboard"_s);
    add(MainWindowPage::Dictionary, u"词库"_s, u"text.book.closed"_s);
    add(MainWindowPage::Contact, u"联系作者"_s, u"person.crop.circle"_s);
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
    QIcon(u":/icons/Wrenfold.svg"_s).paint(&painter, iconRect);
}
