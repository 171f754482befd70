// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tessel {

/// A canvas that nobody sees: what is painted on it is its pixels.
class MemoryCanvas final : public PixelCanvas
{
public:
    /// Begins anew where the size, in pixels, is another one.
    void setSize(int width, int height);

    [[nodiscard]] bool isReady() const override { return true; }
    [[nodiscard]] std::uint32_t* pixels() override { return m_pixels.data(); }
    void presentPixels(std::span<const PixelRect> /*changed*/) override {}
    void releasePixels() override { m_pixels = std::vector<std::uint32_t>(); } // {} would keep the memory
    void present(std::span<const ColoredRect> rectangles) override;

private:
    int m_width = 0;
    std::vector<std::uint32_t> m_pixels;
};

/// Mixes two pictures, 0xFFRRGGBB a pixel.
/// \param mix the share of the second one, 0 to 1
/// \param out as many pixels as there are in each
void mixPixels(std::span<const std::uint32_t> first, const std::uint32_t* second, float mix,
               std::uint32_t* out);

} // namespace tessel
