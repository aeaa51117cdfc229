// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Symbol.h"

#include <QColor>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>

using namespace Qt::StringLiterals;

namespace {

QPixmap render(const QString &name, const QSize &size, const QColor &color)
{
    QImageReader reader(":/symbols/"_L1 + name + ".svg"_L1);
    reader.setScaledSize(reader.size().scaled(size, Qt::KeepAspectRatio));
    auto image = reader.read();
    if (image.isNull())
        return {};
    // The drawing is a template: only its shape counts.
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    return QPixmap::fromImage(std::move(image));
}

QPixmap cached(const QString &name, const QSize &size, const QColor &color)
{
    const auto key = u"symbol %1 %2x%3 %4"_s.arg(name)
                         .arg(size.width())
                         .arg(size.height())
                         .arg(color.name(QColor::HexArgb));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = render(name, size, color);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

} // namespace

void drawSymbol(QPainter &painter, const QRectF &rect, const QString &name, const QColor &color)
{
    const auto ratio = painter.device()->devicePixelRatioF();
    auto pixmap = cached(name, (rect.size() * ratio).toSize(), color);
    pixmap.setDevicePixelRatio(ratio);
    const auto size = pixmap.deviceIndependentSize();
    painter.drawPixmap(rect.center() - QPointF(size.width() / 2, size.height() / 2), pixmap);
}
