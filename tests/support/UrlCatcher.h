// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

// Stands for the browser and the file manager: notes the local files and folders they would open.
class UrlCatcher final : public QObject
{
    Q_OBJECT
public:
    UrlCatcher() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    Q_INVOKABLE void open(const QUrl &url) { opened << url; }

    QList<QUrl> opened;
};
