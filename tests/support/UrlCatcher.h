// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

// Stands for the browser and the file manager: notes the addresses of one scheme they would open.
class UrlCatcher final : public QObject
{
    Q_OBJECT
public:
    explicit UrlCatcher(const QString &scheme = QStringLiteral("file"))
        : m_scheme(scheme)
    {
        QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(m_scheme); }
    Q_INVOKABLE void open(const QUrl &url) { opened << url; }

    QList<QUrl> opened;

private:
    QString m_scheme;
};
