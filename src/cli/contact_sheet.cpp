// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/contact_sheet.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tessel::cli {

namespace {

constexpr int gap = 12;
constexpr int labelHeight = 24;
constexpr double sheetAspect = 1.5;
constexpr QRgb ground = 0xFF14110F;
constexpr QRgb ink = 0xFFD8CFC4;

/// How many tiles of this size in a row make a sheet of the wanted shape.
int columnsFor(std::size_t count, double tileWidth, double tileHeight)
{
    const double ideal = std::sqrt(static_cast<double>(count) * sheetAspect * tileHeight / tileWidth);
    return std::clamp(static_cast<int>(std::lround(ideal)), 1, static_cast<int>(count));
}

QImage view(const Picture& picture)
{
    return {reinterpret_cast<const uchar*>(picture.pixels.get()), picture.width, picture.height,
            static_cast<qsizetype>(picture.width) * 4, QImage::Format_RGB32};
}

QFont labelFont(int tileWidth)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(std::clamp(tileWidth / 14, 9, 14));
    return font;
}

} // namespace

Picture layOutSheet(const std::vector<Tile>& tiles)
{
    const int tileWidth = tiles.front().picture.width;
    const int tileHeight = tiles.front().picture.height;
    const int columns = columnsFor(tiles.size(), tileWidth + gap, tileHeight + labelHeight + gap);
    const int rows = (static_cast<int>(tiles.size()) + columns - 1) / columns;
    Picture sheet(columns * (tileWidth + gap) + gap, rows * (tileHeight + labelHeight + gap) + gap);
    QImage canvas(reinterpret_cast<uchar*>(sheet.pixels.get()), sheet.width, sheet.height,
                  static_cast<qsizetype>(sheet.width) * 4, QImage::Format_RGB32);
    canvas.fill(ground);
    QPainter painter(&canvas);
    painter.setFont(labelFont(tileWidth));
    painter.setPen(QColor(ink));
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const int x = gap + static_cast<int>(i) % columns * (tileWidth + gap);
        const int y = gap + static_cast<int>(i) / columns * (tileHeight + labelHeight + gap);
        painter.drawImage(x, y, view(tiles[i].picture));
        const QString label = painter.fontMetrics().elidedText(QString::fromStdString(tiles[i].label),
                                                               Qt::ElideRight, tileWidth);
        painter.drawText(QRect(x, y + tileHeight, tileWidth, labelHeight), Qt::AlignVCenter | Qt::AlignLeft,
                         label);
    }
    return sheet;
}

} // namespace tessel::cli
