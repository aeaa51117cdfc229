// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ContactPage.h"

#include "AppLogger.h"
#include "ClosureButton.h"
#include "InterfaceFont.h"
#include "MainWindowCallbacks.h"
#include "SelectableTextLine.h"
#include "SeparatorLine.h"
#include "TextLabel.h"
#include "ViewBuilders.h"

#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace ViewBuilders;

namespace {

constexpr int badgeGap = 16;
constexpr int minRowHeight = 64;
constexpr int openButtonWidth = 118;

struct ContactRow
{
    QString symbolName;
    QString label;
    QString value;
};

QLayout *makeContactText(const ContactRow &row)
{
    auto *layout = makeStack(4);
    layout->addWidget(
        makeLabel(row.label, interfaceFont(12, QFont::Medium), SemanticColor::SecondaryLabel));
    layout->addWidget(new SelectableTextLine(
        row.value, row.label, interfaceFont(16), SemanticColor::Label, Qt::ElideRight));
    return layout;
}

QWidget *makeContactRow(const ContactRow &row)
{
    auto *column = makeStack(0);
    column->addStretch();
    column->addLayout(makeContactText(row));
    column->addStretch();
    column->addWidget(new SeparatorLine);

    auto *layout = makeRow(badgeGap);
    layout->addWidget(makeSymbolBadge(row.symbolName));
    layout->addLayout(column, 1);
    auto *view = new QWidget;
    view->setMinimumHeight(minRowHeight);
    view->setLayout(layout);
    return view;
}

QLayout *makeMakerHeading(const QString &name)
{
    auto *layout = makeStack(6);
    if (!name.isEmpty())
        layout->addWidget(
            makeLabel(name, interfaceFont(24, QFont::DemiBold), SemanticColor::Label));
    layout->addWidget(makeBodyLabel(u"Wrenfold 作者"_s));
    return layout;
}

QWidget *makeContactPanel(const ContactDetails &details)
{
    const ContactRow rows[] = {
        {u"text.bubble"_s, u"公众号"_s, details.channel},
        {u"play.rectangle"_s, u"视频号"_s, details.channel},
        {u"waveform"_s, u"小宇宙"_s, details.channel},
        {u"message"_s, u"微信号"_s, details.messagingID},
        {u"envelope"_s, u"邮箱"_s, details.email},
    };
    auto *rowsLayout = makeStack(0);
    for (const auto &row : rows) {
        if (!row.value.isEmpty())
            rowsLayout->addWidget(makeContactRow(row));
    }
    auto *layout = makeStack(24);
    layout->addLayout(makeMakerHeading(details.name));
    layout->addLayout(rowsLayout);
    return makePanel(layout);
}

QWidget *makeDiagnosticsPanel(const MainWindowCallbacks &callbacks)
{
    auto *layout = makeStack(12);
    layout->addWidget(
        makeLabel(u"故障诊断"_s, interfaceFont(18, QFont::DemiBold), SemanticColor::Label));
    layout->addWidget(makeBodyLabel(u"如果遇到双击没反应、菜单栏没有图标、识别失败等问题，可以把日"
                                    u"志文件发给作者排查。日志不会记录"
                                    u" API Key 或转写正文。"_s));
    layout->addWidget(new SelectableTextLine(AppLogger::logPathDisplay(),
                                             u"日志文件"_s,
                                             monospacedFont(13),
                                             SemanticColor::SecondaryLabel,
                                             Qt::ElideMiddle));
    auto *button = new ClosureButton(
        u"打开日志文件夹"_s, ClosureButton::Style::Rounded, callbacks.onOpenLogFolder);
    button->setFixedWidth(openButtonWidth);
    layout->addWidget(button, 0, Qt::AlignLeading);
    return makePanel(layout);
}

} // namespace

ContactPage::ContactPage(const MainWindowCallbacks &callbacks, const ContactDetails &details)
{
    auto *layout = makeStack(0);
    layout->setContentsMargins(44, 46, 44, 44);
    const bool hasContact = details != ContactDetails();
    layout->addWidget(makeTitleBlock(
        u"联系作者"_s,
        hasContact ? u"有问题、建议、合作想法，或者想获取后续更新，可以通过下面方式找到我。"_s
                   : u"遇到问题时，可以从下面的日志查起。"_s));
    layout->addSpacing(32);
    if (hasContact) {
        layout->addWidget(makeContactPanel(details));
        layout->addSpacing(18);
    }
    layout->addWidget(makeDiagnosticsPanel(callbacks));
    layout->addStretch();
    // The cards of all details are higher than the smallest window.
    auto *pageLayout = makeStack(0);
    pageLayout->addWidget(makePageScrollView(layout));
    setLayout(pageLayout);
}
