// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/symbol_images.h"

#include <QColor>
#include <QFile>
#include <QPainter>
#include <QStringList>
#include <QSvgRenderer>

#include <algorithm>

namespace tessel {

namespace {

// A file draws with "currentColor" and lines 2 wide.
QByteArray symbolDrawing(const QString& name, const QString& stroke, const QColor& colour)
{
    QFile file(QStringLiteral(":/symbols/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray drawing = file.readAll();
    drawing.replace("currentColor", colour.name().toLatin1());
    drawing.replace("stroke-width=\"2\"", "stroke-width=\"" + stroke.toLatin1() + '"');
    return drawing;
}

} // namespace

SymbolImages::SymbolImages() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage SymbolImages::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    const QStringList parts = id.split(u'/');
    const QColor colour(u'#' + parts.value(2));
    QSvgRenderer renderer;
    if (!renderer.load(symbolDrawing(parts.value(0), parts.value(1), colour)))
        return {};
    const int side = std::clamp(requestedSize.width(), 1, 1024);
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    // Only now, or it would be seen where lines cross.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(image.rect(), QColor(0, 0, 0, colour.alpha()));
    painter.end();
    *size = image.size();
    return image;
}

} // namespace tessel
