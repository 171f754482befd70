// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace tessel {

/// An opaque picture in memory, top row first. A pixel is 0xAARRGGBB (the order in which OpenGL's GL_BGRA
/// bytes lie on a little-endian machine); its alpha has no meaning.
struct Picture
{
    /// Pixels start out undefined: a 6K picture is 80 MB, too much to clear before it is overwritten anyway.
    Picture(int columns, int rows)
        : width(columns)
        , height(rows)
        , pixels(std::make_unique_for_overwrite<std::uint32_t[]>(pixelCount()))
    {
    }

    [[nodiscard]] std::size_t pixelCount() const
    {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }

    /// The pixels of row `y`, 0 at the top.
    [[nodiscard]] std::span<std::uint32_t> row(int y) { return {pixels.get() + offset(y), columns()}; }
    [[nodiscard]] std::span<const std::uint32_t> row(int y) const
    {
        return {pixels.get() + offset(y), columns()};
    }

    int width;
    int height;
    std::unique_ptr<std::uint32_t[]> pixels; ///< width x height, without gaps between rows

private:
    [[nodiscard]] std::size_t columns() const { return static_cast<std::size_t>(width); }
    [[nodiscard]] std::size_t offset(int y) const { return static_cast<std::size_t>(y) * columns(); }
};

} // namespace tessel
