// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/cross_fade.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tessel {

void MemoryCanvas::setSize(int width, int height)
{
    m_width = width;
    m_pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

void MemoryCanvas::present(std::span<const ColoredRect> rectangles)
{
    for (const ColoredRect& rectangle : rectangles)
        fillRectangle(m_pixels.data(), m_width, rectangle);
}

void mixPixels(std::span<const std::uint32_t> first, const std::uint32_t* second, float mix,
               std::uint32_t* out)
{
    // Two channels at once.
    static constexpr std::uint32_t lanes = 0x00FF00FF;
    static constexpr std::uint32_t half = 0x00800080;
    static constexpr std::uint32_t whole = 256;
    const auto part = static_cast<std::uint32_t>(std::lround(mix * static_cast<float>(whole)));
    for (std::size_t i = 0; i < first.size(); ++i) {
        const std::uint32_t from = first[i];
        const std::uint32_t to = second[i];
        const std::uint32_t even =
            ((from & lanes) * (whole - part) + (to & lanes) * part + half) >> 8U & lanes;
        const std::uint32_t odd =
            ((from >> 8U & lanes) * (whole - part) + (to >> 8U & lanes) * part + half) & ~lanes;
        out[i] = even | odd;
    }
}

} // namespace tessel
