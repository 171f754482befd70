// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/pattern.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

/// A packed sRGB colour, 0xRRGGBB; what the top byte holds is kept but never drawn.
using Color = std::uint32_t;

/// How tones become palette colours. The raw values are part of the file format.
enum class Dither : std::uint8_t
{
    smooth,
    posterize,
    bayer4,
    bayer8,
    noise,
    halftone,
    lines,
    diamond,
    ascii,
    benday,
};
inline constexpr int ditherCount = 10;

/// The side of the screen on which the handle docks. The raw values are part of the file format.
enum class Edge : std::uint8_t
{
    left,
    right
};

/// All dithers in raw order.
[[nodiscard]] const std::array<Dither, ditherCount>& allDithers();

/// The dither with this raw value; none outside 0-9.
[[nodiscard]] std::optional<Dither> ditherFromRaw(std::int64_t raw);

/// The name shown to people, such as "Bayer 8" or "Left".
[[nodiscard]] std::string_view title(Dither dither);
[[nodiscard]] std::string_view title(Edge edge);

/// The recipe of one wallpaper. It stores what it is given; the ranges to choose from are in sliders.h.
struct Look
{
    Pattern pattern = Pattern::flow;
    std::int64_t palette = 0; ///< index into builtInPalettes(), wrapping past the end; never negative
    Dither dither = Dither::bayer8;
    float pixel = 8.0F;                       ///< side of one cell, in points of a screen 1512 points long
    float levels = 5.0F;                      ///< tone levels the dither quantises to
    float scale = 1.0F;                       ///< zoom; higher means larger features
    float warp = 1.0F;                        ///< domain warping; 0 is the plain geometry
    float speed = 0.35F;                      ///< animation phase per second
    float contrast = 1.15F;                   ///< slope of the tone curve about 0.5
    float offset = 0.0F;                      ///< shift along the palette
    float grain = 0.04F;                      ///< amount of film grain
    float vignette = 0.25F;                   ///< darkening toward the corners
    bool invert = false;                      ///< turns the tone ramp round
    float seed = 12.0F;                       ///< moves the composition
    std::optional<std::string> imagePath;     ///< UTF-8 path of the photo that Pattern::image shows
    std::optional<std::vector<Color>> custom; ///< own stops; used instead of `palette` unless empty

    bool operator==(const Look&) const = default;
};

/// A named look that the user has saved.
struct Preset
{
    std::string id; ///< UUID in its 36-character form, in either case
    std::string name;
    Look look;
    bool motion = false; ///< whether it is applied animated

    bool operator==(const Preset&) const = default;
};

} // namespace tessel

template<>
struct std::hash<tessel::Look>
{
    std::size_t operator()(const tessel::Look& look) const noexcept;
};

template<>
struct std::hash<tessel::Preset>
{
    std::size_t operator()(const tessel::Preset& preset) const noexcept;
};
