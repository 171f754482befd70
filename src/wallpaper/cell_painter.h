// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"
#include "render/frame_encoder.h"

#include <cstdint>
#include <vector>

namespace tessel {

/// Paints frames whose cells have one colour each as plain rectangles, and only the cells that have changed
/// since the last frame. Without a GPU that is many times cheaper than drawing every pixel and copying it to
/// the display server. It allocates nothing as long as the size of the grid stays.
class CellPainter
{
public:
    /// Whether a frame can be painted so.
    [[nodiscard]] static bool canPaint(const Frame& frame);

    /// Paints a frame that canPaint(), with an OpenGL context current for working out the cells.
    /// \return whether anything had to be painted; false also where the GPU has no room for the cells
    bool paint(FrameEncoder& encoder, const Frame& frame, PixelCanvas& canvas);

    /// What the window shows is no longer what was painted: the next frame is painted whole.
    void invalidate() { m_valid = false; }

private:
    bool readCells(FrameEncoder& encoder, const Frame& frame);
    void findRuns(const Frame& frame, int cell);

    GridSize m_grid;
    int m_cell = 0;
    bool m_valid = false;
    std::vector<std::uint32_t> m_shown; ///< the colour of every cell, first row on top
    std::vector<std::uint32_t> m_next;
    std::vector<ColoredRect> m_runs;
};

} // namespace tessel
