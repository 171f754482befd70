// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

/// The most stops that are drawn.
inline constexpr std::size_t maxStops = 5;

/// How many palettes at the head of the table belong to no family.
inline constexpr int corePaletteCount = 12;

/// A named, built-in list of 2 to 5 stops, dark to light for the most part.
struct Palette
{
    std::string_view name; ///< unique within the table
    std::span<const Color> hex;
    std::string_view group; ///< the pattern family it was made for; empty for the core palettes
};

/// A family of palettes as the editor lists them.
struct PaletteGroup
{
    std::string_view name;
    std::vector<int> indices; ///< into builtInPalettes(), ascending
};

/// The stops of a look, ready to draw: `count` is 2 to 5, a short list repeats its last stop, and every top
/// byte is zero.
struct Stops
{
    std::array<Color, maxStops> slot{};
    int count = 0;
};

/// The 222 palettes that come with the program. A palette's place is part of the file format.
[[nodiscard]] std::span<const Palette> builtInPalettes();

/// The families after the core palettes, in table order: Metal, Silk, ... Ribbon.
[[nodiscard]] const std::vector<PaletteGroup>& paletteGroups();

/// Whether the colours of a palette never change: those of the core ones and of the first of each family.
[[nodiscard]] bool isFixed(int index);

/// How far apart neighbouring stops are at least, as OKLab distance, so that a picture shows both.
inline constexpr double stopFloor = 0.12;

/// The OKLab distance of the two neighbouring stops of a palette that look most alike.
[[nodiscard]] double nearestStops(const Palette& palette);

/// The place in the table of the palette that a look names.
[[nodiscard]] int builtInIndex(const Look& look);

/// "Custom" for a look with its own stops, else the name of its palette; an empty list is no stops.
[[nodiscard]] std::string_view paletteName(const Look& look);

/// Pattern title and palette name, such as "Flow Ember".
[[nodiscard]] std::string displayTitle(const Look& look);

/// The stops a look is drawn with.
[[nodiscard]] Stops resolveStops(const Look& look);

/// A colour as six upper-case hexadecimal digits.
[[nodiscard]] std::string hexText(Color color);

} // namespace tessel
