// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/glyph_atlas.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>

namespace tessel {

namespace {

/// Font size in pixels, nine tenths of a cell.
constexpr double glyphSize = 43.2;

/// Characters are centred but for this one, which would be a hyphen there. In pixels of the atlas.
constexpr double underscoreDrop = 12;

QFont glyphFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("Menlo"), QStringLiteral("DejaVu Sans Mono")});
    font.setStyleHint(QFont::Monospace);
    font.setBold(true);
    // The size is fractional, which QFont only takes in points: draw large and scale down.
    font.setPixelSize(static_cast<int>(glyphSize * 10));
    return font;
}

} // namespace

QImage drawGlyphAtlas()
{
    QImage atlas(glyphCellSize * glyphCount, glyphCellSize, QImage::Format_Grayscale8);
    atlas.fill(Qt::black);
    QPainter painter(&atlas);
    painter.setRenderHint(QPainter::Antialiasing);
    const QFont font = glyphFont();
    for (int i = 0; i < glyphCount; ++i) {
        QPainterPath outline;
        outline.addText(0, 0, font, QString(QLatin1Char(atlasGlyphs.at(static_cast<std::size_t>(i)))));
        const QRectF bounds = outline.boundingRect();
        const QRect cell(i * glyphCellSize, 0, glyphCellSize, glyphCellSize);
        painter.save();
        painter.setClipRect(cell);
        painter.translate(QRectF(cell).center());
        if (atlasGlyphs.at(static_cast<std::size_t>(i)) == '_')
            painter.translate(0, underscoreDrop);
        painter.scale(0.1, 0.1);
        painter.translate(-bounds.center());
        painter.fillPath(outline, Qt::white);
        painter.restore();
    }
    return atlas;
}

} // namespace tessel
