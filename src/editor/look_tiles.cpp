// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/look_tiles.h"

#include "controls/look_pictures.h"

#include <string_view>

namespace tessel {

namespace {

/// The grey-brown in which tiles wait.
const std::vector<Color> clay{0x15110E, 0x4C4036, 0x9C8B7B, 0xEADFD2};

// In points.
constexpr float patternTileWidth = 66;
constexpr float ditherTileWidth = 140;

/// The side of a cell, in points, that shows a dither best on a tile of its own.
float ditherCell(Dither dither)
{
    switch (dither) {
    case Dither::bayer4:
        // With cells of one size nobody could tell it from the finer matrix.
        return 3;
    case Dither::ascii:
        return 4;
    default:
        return 2;
    }
}

/// The same on the tile of a pattern, which has much to show in little room.
float patternCell(Dither dither)
{
    switch (dither) {
    case Dither::halftone:
    case Dither::lines:
    case Dither::diamond:
    case Dither::benday:
        return 2;
    case Dither::ascii:
        return 3;
    default:
        return 1;
    }
}

Look inClay()
{
    Look look;
    look.custom = clay;
    look.levels = static_cast<float>(clay.size());
    look.grain = 0;
    return look;
}

/// A tile's look in the colours of another.
Look inColorsOf(const Look& look, Look tile)
{
    tile.palette = look.palette;
    tile.custom = look.custom;
    tile.levels = look.levels;
    tile.invert = look.invert;
    tile.imagePath = look.imagePath;
    return tile;
}

} // namespace

std::vector<Tile> patternTiles()
{
    std::vector<Tile> tiles;
    for (const Pattern pattern : allPatterns()) {
        Look look = inClay();
        look.pattern = pattern;
        look.pixel = pixelForCells(patternCell(look.dither), patternTileWidth);
        tiles.push_back({QString::fromUtf8(title(pattern)), look});
    }
    return tiles;
}

std::vector<Tile> ditherTiles()
{
    std::vector<Tile> tiles;
    for (const Dither dither : allDithers()) {
        Look look = inClay();
        look.pattern = Pattern::swell;
        look.dither = dither;
        look.pixel = pixelForCells(ditherCell(dither), ditherTileWidth);
        tiles.push_back({QString::fromUtf8(title(dither)), look});
    }
    return tiles;
}

TileChoice patternChoice()
{
    return {.rowOf = [](const Look& look) { return static_cast<int>(look.pattern); },
            .choose =
                [](Look look, int row) {
                    look.pattern = allPatterns().at(static_cast<std::size_t>(row));
                    return look;
                },
            .live =
                [](const Look& atRest, const Look& look) {
                    Look live = inColorsOf(look, atRest);
                    live.dither = look.dither;
                    live.pixel = pixelForCells(patternCell(look.dither), patternTileWidth);
                    return live;
                }};
}

TileChoice ditherChoice()
{
    return {.rowOf = [](const Look& look) { return static_cast<int>(look.dither); },
            .choose =
                [](Look look, int row) {
                    look.dither = allDithers().at(static_cast<std::size_t>(row));
                    return look;
                },
            .live = [](const Look& atRest, const Look& look) { return inColorsOf(look, atRest); }};
}

} // namespace tessel
