// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/cell_painter.h"

#include "shaders/shaders.h"

#include <algorithm>

namespace tessel {

namespace {

constexpr std::uint32_t colorBits = 0xFFFFFF;

} // namespace

bool CellPainter::canPaint(const Frame& frame)
{
    return frame.mix >= 1.0F && shaders::kind(frame.current.dither) == shaders::DitherKind::cell &&
           cellSize(frame) > 1.0F;
}

bool CellPainter::paint(FrameEncoder& encoder, const Frame& frame, PixelCanvas& canvas)
{
    const int cell = static_cast<int>(cellSize(frame));
    const GridSize grid = fieldSize(frame.width, frame.height, static_cast<float>(cell));
    if (grid != m_grid || cell != m_cell) {
        m_grid = grid;
        m_cell = cell;
        m_valid = false;
        m_shown.resize(cellCount(grid));
        m_next.resize(cellCount(grid));
        // Together there are never more runs than cells.
        m_runs.reserve(cellCount(grid));
    }
    if (!readCells(encoder, frame))
        return false;
    findRuns(frame, cell);
    std::swap(m_shown, m_next);
    m_valid = true;
    if (m_runs.empty())
        return false;
    std::ranges::sort(m_runs, {}, &ColoredRect::color);
    canvas.present(m_runs);
    return true;
}

bool CellPainter::readCells(FrameEncoder& encoder, const Frame& frame)
{
    const CellTextures* cells = encoder.encodeCells(frame);
    if (cells == nullptr)
        return false;
    readColors(cells->lowerTarget, m_grid.width, m_grid.height, m_next.data());
    return true;
}

/// Neighbours within a row that change to the same colour become one rectangle.
void CellPainter::findRuns(const Frame& frame, int cell)
{
    m_runs.clear();
    std::size_t at = 0;
    for (int row = 0; row < m_grid.height; ++row) {
        const int top = row * cell;
        const auto height = static_cast<std::uint16_t>(std::min(cell, frame.height - top));
        std::size_t lastChanged = m_next.size();
        for (int column = 0; column < m_grid.width; ++column, ++at) {
            const std::uint32_t color = m_next[at] & colorBits;
            if (m_valid && color == (m_shown[at] & colorBits))
                continue;
            const int left = column * cell;
            const auto width = static_cast<std::uint16_t>(std::min(cell, frame.width - left));
            if (column > 0 && lastChanged + 1 == at && m_runs.back().color == color) {
                PixelRect& run = m_runs.back().area;
                run.width = static_cast<std::uint16_t>(run.width + width);
            } else {
                m_runs.push_back(
                    {color,
                     {static_cast<std::int16_t>(left), static_cast<std::int16_t>(top), width, height}});
            }
            lastChanged = at;
        }
    }
}

} // namespace tessel
