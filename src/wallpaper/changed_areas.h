// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessel {

/// Where a picture has changed, in a few rectangles: a server takes one large picture in less time than many
/// small ones, but what it need not take costs nothing.
class ChangedAreas
{
public:
    /// Begins anew with a picture of this size, nothing of it changed.
    void reset(int width, int height);

    void mark(int x, int y)
    {
        m_changed[static_cast<std::size_t>(y >> heightBits) * m_columns +
                  static_cast<std::size_t>(x >> widthBits)] = 1;
    }

    /// Marks a rectangle, of which the right column and the bottom row are no part.
    void mark(int left, int top, int right, int bottom);

    /// What has changed since it was last asked. Valid until the next call.
    [[nodiscard]] std::span<const PixelRect> take();

private:
    /// Columns of blocks.
    struct Run
    {
        std::size_t begin = 0;
        std::size_t end = 0;
        bool operator==(const Run&) const = default;
    };

    [[nodiscard]] Run nextRun(const std::uint8_t* row, std::size_t from) const;
    void add(Run run, int top);

    /// The sides of a block, as powers of two.
    static constexpr int widthBits = 6;
    static constexpr int heightBits = 5;

    int m_width = 0;
    int m_height = 0;
    std::size_t m_columns = 0;
    std::vector<std::uint8_t> m_changed; ///< of each block, row by row
    std::vector<PixelRect> m_areas;
};

} // namespace tessel
