// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/changed_areas.h"

#include <algorithm>

namespace tessel {

void ChangedAreas::reset(int width, int height)
{
    m_width = width;
    m_height = height;
    m_columns = static_cast<std::size_t>((width - 1) >> widthBits) + 1;
    const auto rows = static_cast<std::size_t>((height - 1) >> heightBits) + 1;
    m_changed.assign(m_columns * rows, 0);
    // Between two runs there is more than one block.
    m_areas.reserve(rows * (m_columns / 3 + 1));
}

void ChangedAreas::mark(int left, int top, int right, int bottom)
{
    for (int row = top >> heightBits; row <= (bottom - 1) >> heightBits; ++row)
        for (int column = left >> widthBits; column <= (right - 1) >> widthBits; ++column)
            mark(column << widthBits, row << heightBits);
}

/// Changed blocks with no gap of more than one between them; empty at the end of the row if there are none.
ChangedAreas::Run ChangedAreas::nextRun(const std::uint8_t* row, std::size_t from) const
{
    const std::uint8_t* const end = row + m_columns;
    const std::uint8_t* const first = std::find(row + from, end, 1);
    const std::uint8_t* last = first;
    for (const std::uint8_t* at = first; at < end && at - last < 3; ++at)
        if (*at != 0)
            last = at;
    const auto begin = static_cast<std::size_t>(first - row);
    return {begin, first == end ? begin : static_cast<std::size_t>(last - row) + 1};
}

void ChangedAreas::add(Run run, int top)
{
    const int left = static_cast<int>(run.begin << widthBits);
    const int right = std::min(static_cast<int>(run.end << widthBits), m_width);
    const PixelRect area{static_cast<std::int16_t>(left), static_cast<std::int16_t>(top),
                         static_cast<std::uint16_t>(right - left),
                         static_cast<std::uint16_t>(std::min(1 << heightBits, m_height - top))};
    // Rows that have changed alike are one area.
    if (!m_areas.empty()) {
        PixelRect& above = m_areas.back();
        if (above.x == area.x && above.width == area.width && above.y + above.height == top) {
            above.height = static_cast<std::uint16_t>(above.height + area.height);
            return;
        }
    }
    m_areas.push_back(area);
}

std::span<const PixelRect> ChangedAreas::take()
{
    m_areas.clear();
    int top = 0;
    for (auto row = m_changed.begin(); row != m_changed.end();
         row += static_cast<std::ptrdiff_t>(m_columns), top += 1 << heightBits)
        for (Run run = nextRun(&*row, 0); run.begin < run.end; run = nextRun(&*row, run.end))
            add(run, top);
    std::ranges::fill(m_changed, std::uint8_t{0});
    return m_areas;
}

} // namespace tessel
