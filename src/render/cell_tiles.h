// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessel {

/// A tile of the grid of cells. Those of the last column and row may reach beyond it.
struct CellTile
{
    static constexpr int side = 8; ///< in cells

    std::uint16_t column = 0;
    std::uint16_t row = 0;
};

/// Tones of tiles, each sampled at `side` x `side` cells; 0 stands for -1.5 and 65535 for 2.5.
struct TileTones
{
    static constexpr std::size_t tilesInARow = 64;
    static constexpr std::size_t capacity = tilesInARow * tilesInARow; ///< tiles
    static constexpr int longestSide = CellTile::side;
    static constexpr std::size_t pitch = tilesInARow * longestSide;

    int side = 0;
    std::size_t columns = tilesInARow; ///< tiles that stand beside each other, no more than that
    std::vector<std::uint16_t> tones;

    /// The first sample of a tile; the next row of them is `pitch` on.
    [[nodiscard]] const std::uint16_t* of(std::size_t tile) const
    {
        const auto length = static_cast<std::size_t>(side);
        return &tones[tile / columns * length * pitch + tile % columns * length];
    }
};

} // namespace tessel
