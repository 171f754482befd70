// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/changed_bands.h"

#include <algorithm>
#include <utility>

namespace tessel {

void ChangedBands::reset(int width, int height)
{
    m_width = width;
    m_height = height;
    const auto bands = static_cast<std::size_t>((height - 1) >> shift) + 1;
    m_changed.assign(bands, 0);
    m_areas.reserve(bands);
}

std::span<const PixelRect> ChangedBands::take()
{
    m_areas.clear();
    bool before = false;
    for (std::size_t band = 0; band < m_changed.size(); ++band) {
        const bool changed = std::exchange(m_changed[band], std::uint8_t{0}) != 0;
        const int top = static_cast<int>(band) << shift;
        const int height = std::min(1 << shift, m_height - top);
        if (changed && before)
            m_areas.back().height = static_cast<std::uint16_t>(m_areas.back().height + height);
        else if (changed)
            m_areas.push_back({0, static_cast<std::int16_t>(top), static_cast<std::uint16_t>(m_width),
                               static_cast<std::uint16_t>(height)});
        before = changed;
    }
    return m_areas;
}

} // namespace tessel
