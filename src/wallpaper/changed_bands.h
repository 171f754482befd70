// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tessel {

/// Where a picture has changed, in bands over its whole width: a server takes one large picture in less time
/// than many small ones.
class ChangedBands
{
public:
    /// Begins anew with a picture of this size, nothing of it changed.
    void reset(int width, int height);

    void mark(int row) { m_changed[static_cast<std::size_t>(row >> shift)] = 1; }

    /// What has changed since it was last asked; neighbouring bands are one area. Valid until the next call.
    [[nodiscard]] std::span<const PixelRect> take();

private:
    /// The height of a band, as a power of two.
    static constexpr int shift = 5;

    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint8_t> m_changed;
    std::vector<PixelRect> m_areas;
};

} // namespace tessel
