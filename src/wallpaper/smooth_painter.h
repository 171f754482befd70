// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"
#include "render/frame_encoder.h"
#include "wallpaper/changed_bands.h"
#include "wallpaper/smooth_colors.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace tessel {

/// Of each cell of a tile, row by row.
using TileOfTones = std::array<std::int16_t, std::size_t{CellTile::side} * CellTile::side>;

/// Paints frames of smooth looks without evaluating their pattern everywhere. Tiles of cells are evaluated
/// when they may have changed by about a level of a channel, judged by how fast they and those around them
/// did before; of plain tiles every second or fourth cell is, and the tones between are interpolated. It
/// allocates nothing as long as the look and the size stay.
class SmoothPainter
{
public:
    /// Whether a frame can be painted so.
    [[nodiscard]] static bool canPaint(const Frame& frame);

    /// Paints a frame that canPaint(), with an OpenGL context current for sampling the pattern.
    /// The pixels of the canvas must be as they were left.
    /// \return whether anything had to be painted; false also where the GPU has no room for the samples
    /// \throws DrawingError
    bool paint(FrameEncoder& encoder, const Frame& frame, PixelCanvas& canvas);

    /// The canvas no longer shows what was painted: the next frame is painted whole.
    void invalidate() { m_valid = false; }

private:
    /// What is painted; all is worked out anew when it becomes another.
    struct Shape
    {
        Look look;
        int width = 0;
        int height = 0;
        int cell = 0;
        Edge edge = Edge::left;
    };

    /// What is known of a tile.
    struct TileState
    {
        double time = 0.0;           ///< phase of the tones that are painted
        std::uint32_t evaluated = 0; ///< number of the frame in which it was last evaluated
    };

    [[nodiscard]] bool isOf(const Frame& frame) const;
    void begin(FrameEncoder& encoder, const Frame& frame);
    void makeGrain();
    void spread();
    void findDue(double time);
    [[nodiscard]] bool isDue(std::size_t tile, double time) const;
    bool evaluate(FrameEncoder& encoder, const Frame& frame, int step, std::span<const CellTile> tiles);
    void update(CellTile tile, int step, const std::uint16_t* samples, double time);
    [[nodiscard]] int finish(CellTile tile, TileOfTones& tones) const;
    using Surrounded = std::array<std::array<std::uint32_t, CellTile::side + 2>, CellTile::side + 2>;
    [[nodiscard]] Surrounded colorsAround(CellTile tile) const;
    void paintCells(CellTile tile, std::uint32_t* pixels);
    void paintBetweenCells(CellTile tile, std::uint32_t* pixels);

    [[nodiscard]] std::size_t index(CellTile tile) const;
    [[nodiscard]] std::size_t stride() const;
    [[nodiscard]] std::size_t firstCell(CellTile tile) const;

    Shape m_shape;
    GridSize m_grid;  ///< in cells
    GridSize m_tiles; ///< in tiles
    bool m_valid = false;
    std::uint32_t m_frame = 0;
    double m_time = 0.0; ///< phase of the last frame
    SmoothColors m_colors;
    std::vector<std::int16_t> m_tones;          ///< of each cell of all tiles, row by row
    std::vector<std::int16_t> m_grain;          ///< of the same cells; none for a look without
    std::vector<TileState> m_states;            ///< of each tile, row by row, as are the next four
    std::vector<float> m_rates;                 ///< tones a phase that they change by
    std::vector<float> m_ratesAround;           ///< the highest of it and its neighbours
    std::vector<std::uint8_t> m_steps;          ///< cells between its samples the next time
    std::vector<std::uint8_t> m_stepsAround;    ///< the least of it and its neighbours
    std::array<std::vector<CellTile>, 3> m_due; ///< by the step's power of two
    std::vector<CellTile> m_changed;            ///< in this frame
    TileTones m_samples;
    ChangedBands m_bands;
};

} // namespace tessel
