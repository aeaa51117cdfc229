// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "StatusMenu.h"

#include "AppLogger.h"

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

namespace {

// Nobody says how dark the panel is. This grey stands out from white and from black alike, at a
// contrast of more than 4 to 1.
constexpr QRgb tint = 0xff777777;

QIcon templateIcon(const QImage &image)
{
    constexpr int glyphSize = 18;
    QIcon icon;
    if (image.isNull())
        return icon;
    for (const int scale : {1, 2, 4}) {
        const int size = glyphSize * scale;
        auto glyph = image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                         .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&glyph);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(glyph.rect(), QColor(tint));
        painter.end();
        icon.addPixmap(QPixmap::fromImage(glyph));
    }
    return icon;
}

} // namespace

StatusMenu::StatusMenu(StatusMenuActions actions)
    : m_actions(std::move(actions))
{}

StatusMenu::~StatusMenu() = default;

void StatusMenu::loadIcon()
{
    if (!m_image.load(u":/icons/wrenfold-menubar-template.png"_s))
        m_image.load(u":/icons/Wrenfold.png"_s);
    if (m_image.isNull())
        AppLogger::warning(u"Status menu icon missing."_s);
    else
        AppLogger::info(u"Status menu icon loaded."_s);
}

void StatusMenu::showWhenHosted(std::vector<std::unique_ptr<TrayHostWatch>> watches)
{
    m_watches = std::move(watches);
    for (const auto &watch : m_watches)
        watch->start([this] { showIcon(); });
}

void StatusMenu::setToolTip(const QString &text)
{
    m_toolTip = text;
    if (m_icon)
        m_icon->setToolTip(text);
}

// From here on Qt itself follows a panel that is restarted.
void StatusMenu::showIcon()
{
    if (m_icon)
        return;
    buildMenu();
    m_icon = std::make_unique<QSystemTrayIcon>(templateIcon(m_image));
    m_icon->setToolTip(m_toolTip);
    m_icon->setContextMenu(m_menu.get());
    QObject::connect(m_icon.get(),
                     &QSystemTrayIcon::activated,
                     m_icon.get(),
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger)
                             m_actions.activate();
                     });
    m_icon->show();
}

void StatusMenu::buildMenu()
{
    m_menu = std::make_unique<QMenu>();
    m_menu->addAction(u"开始使用"_s, m_actions.openAPIConfiguration);
    m_menu->addAction(u"打开日志文件夹"_s, m_actions.openLogFolder);
    m_menu->addSeparator();
    auto *quit = m_menu->addAction(u"退出"_s, m_actions.quit);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}
