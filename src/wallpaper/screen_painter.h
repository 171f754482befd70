// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"
#include "render/frame_encoder.h"
#include "wallpaper/changed_areas.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tessel {

/// Paints frames of screen dithers, and only what changes. A pixel of theirs shows the upper one of its
/// cell's two inks above a share that never changes for a dither, size and cell, so that a cell keeps its
/// pixels in the order of their shares, and those that change with its tone stand together. Of characters a
/// cell is painted whole. It allocates nothing as long as the dither, the size and the cell stay.
class ScreenPainter
{
public:
    /// Whether a frame can be painted so.
    [[nodiscard]] static bool canPaint(const Frame& frame);

    /// Paints a frame that canPaint(), with an OpenGL context current for working out the cells and the map.
    /// The pixels of the canvas must be as they were left.
    /// \return whether anything had to be painted; false also where the GPU has no room for what it works out
    /// \throws DrawingError
    bool paint(FrameEncoder& encoder, const Frame& frame, PixelCanvas& canvas);

    /// The canvas no longer shows what was painted: the next frame is painted whole.
    void invalidate() { m_valid = false; }

private:
    struct Shape
    {
        Dither dither = Dither::smooth;
        int width = 0;
        int height = 0;
        float cell = 0.0F;
        float pixel = 0.0F; ///< the look's, which the distance of dots may follow
        bool operator==(const Shape&) const = default;
    };

    /// What a cell shows: its inks as 0xRRGGBB, the share of the upper one in the top byte of the lower one,
    /// and where among its pixels the first stands that shows the lower one.
    struct Shown
    {
        std::uint32_t lower;
        std::uint32_t upper;
        std::uint32_t border;
    };

    struct Place
    {
        std::uint16_t x;
        std::uint16_t y;
    };

    /// Pixels of one cell, as places in the map.
    struct Range
    {
        std::uint32_t begin;
        std::uint32_t end;
    };

    bool drawMap(FrameEncoder& encoder, const Frame& frame);
    void sortMap(std::span<const std::uint32_t> map);
    bool readInks(FrameEncoder& encoder, const Frame& frame);
    void findChanged();
    void repaintAll(std::uint32_t* pixels);
    void repaint(std::size_t cell, std::uint32_t* pixels);
    void repaintCharacter(std::size_t cell, std::uint32_t* pixels);
    void fill(Range range, std::uint32_t color, std::uint32_t* pixels);

    Shape m_shape;
    GridSize m_grid;
    bool m_valid = false;
    std::vector<std::uint32_t> m_first; ///< of each cell, the place of its first pixel; and one for the end
    std::vector<Place> m_places;        ///< of all pixels, by cell and then by threshold
    std::vector<std::uint8_t> m_thresholds;  ///< of the same pixels
    std::vector<std::uint32_t> m_characters; ///< of each pixel, which of them have ink there
    std::vector<std::uint32_t> m_lower; ///< of each cell as read, the share of the upper ink in the top byte
    std::vector<std::uint32_t> m_upper;
    std::vector<Shown> m_shown;
    std::vector<std::uint32_t> m_changed; ///< the cells that show something else in this frame
    ChangedAreas m_areas;
};

} // namespace tessel
