// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"
#include "render/frame_encoder.h"
#include "wallpaper/changed_areas.h"
#include "wallpaper/smooth_colors.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace tessel {

/// Of each cell of a tile, row by row.
using TileOfTones = std::array<std::int16_t, std::size_t{CellTile::side} * CellTile::side>;

/// Paints frames of smooth looks without evaluating their pattern everywhere and in every frame. Tiles of
/// cells are evaluated ahead, as many frames as their tones stay on their way, and go there in a straight
/// line; of plain tiles every second or fourth cell is, and the tones between are interpolated. It allocates
/// nothing as long as the look and the size stay.
class SmoothPainter
{
public:
    /// Of a tile's cells in a row, and of one more at each end.
    using RowOfColors = std::array<std::uint32_t, CellTile::side + 2>;

    /// Of every second cell in every second row of a tile.
    using KeptTones = std::array<std::int16_t, std::tuple_size_v<TileOfTones> / 4>;

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
        double painted = 0.0; ///< phase of the tones that are painted
        double next = 0.0;    ///< that for which it was evaluated last,
        double before = 0.0;  ///< and the time before
        float rate = 0.0F;    ///< tones a phase by which it changes now, the most
        int known = 0;        ///< how often it was evaluated since it last began anew, up to two
    };

    /// How tiles are evaluated.
    struct Sampling
    {
        int step = 1; ///< cells from one sample to the next, 1 to 4
        int span = 1; ///< frames until the next time; those of one frame are evaluated for what is shown now
    };

    [[nodiscard]] bool isOf(const Frame& frame) const;
    void begin(FrameEncoder& encoder, const Frame& frame);
    void makeGrain();
    void keepPace(double time);
    void forget();
    void spread();
    void findDue(double time);
    [[nodiscard]] std::vector<CellTile>& due(Sampling sampling);
    bool evaluateDue(FrameEncoder& encoder, const Frame& frame);
    bool evaluate(FrameEncoder& encoder, const Frame& frame, Sampling sampling,
                  std::span<const CellTile> tiles);
    void update(CellTile tile, Sampling sampling, const std::uint16_t* samples, double time);
    [[nodiscard]] float bend(CellTile tile, const TileOfTones& tones, double time) const;
    void aim(CellTile tile, const TileOfTones& tones, double time);
    [[nodiscard]] bool isPromoted(std::size_t tile, int span) const;
    void findChanged(double time);
    void fetch(CellTile tile) const;
    void fetchPixels(CellTile tile, const std::uint32_t* pixels) const;
    void advance(CellTile tile, double time);
    template<std::size_t Count>
    [[nodiscard]] std::array<std::uint16_t, Count> places(std::size_t tile, std::size_t cell) const;
    using Surrounded = std::array<RowOfColors, CellTile::side + 2>;
    [[nodiscard]] Surrounded colorsAround(CellTile tile) const;
    void paintCells(CellTile tile, std::uint32_t* pixels);
    void paintBetweenCells(CellTile tile, std::uint32_t* pixels);

    [[nodiscard]] std::size_t index(CellTile tile) const;

    Shape m_shape;
    GridSize m_grid;  ///< in cells
    GridSize m_tiles; ///< in tiles
    bool m_valid = false;
    std::uint32_t m_frame = 0;
    double m_time = 0.0; ///< phase of the last frame
    double m_pace = 0.0; ///< how far it is to be expected to go in a frame
    SmoothColors m_colors;
    std::vector<TileOfTones> m_tones;  ///< that are painted, but for the grain
    std::vector<TileOfTones> m_next;   ///< where they go
    std::vector<KeptTones> m_before;   ///< where they went the last time
    std::vector<TileOfTones> m_grain;  ///< none for a look without
    std::vector<TileState> m_states;   ///< of each tile, row by row, as are those before and the next four
    std::vector<std::uint8_t> m_steps; ///< cells between its samples the next time
    std::vector<std::uint8_t> m_stepsAround; ///< the least of it and its neighbours
    std::vector<std::uint8_t> m_spans;       ///< frames from the next time to the one after
    std::vector<std::uint8_t> m_spansAround; ///< the least of it and its neighbours
    static constexpr std::size_t steps = 3;
    static constexpr std::size_t spans = 4;
    std::array<std::vector<CellTile>, steps * spans> m_due; ///< by the powers of two of span and step
    std::vector<CellTile> m_changed;                        ///< in this frame
    TileTones m_samples;
    ChangedAreas m_areas;
};

} // namespace tessel
