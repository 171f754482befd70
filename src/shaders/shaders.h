// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <string>
#include <string_view>

namespace tessel::shaders {

/// The dialect that the sources are given to the driver in.
enum class Dialect : std::uint8_t
{
    glsl330,
    glslEs300
};

/// What a dither needs to know to decide on a pixel.
enum class DitherKind : std::uint8_t
{
    continuous, ///< one colour per cell, blended between cell centres
    cell,       ///< one ink per cell
    screen,     ///< an ink per pixel, one of the two of its cell
};
[[nodiscard]] DitherKind kind(Dither dither);

/// The two stages of one program.
struct Source
{
    std::string vertex;
    std::string fragment;
};

/// Texels of the ramp that a smooth look is coloured with.
inline constexpr int rampLength = 512;

/// The most inks that a look is drawn with.
inline constexpr int maxLevels = 16;

enum class FieldPart : std::uint8_t
{
    whole,
    tiles ///< samples of some tiles of it, of their plain tones
};

/// Draws the tone of every cell into a field texture, or those of some tiles.
[[nodiscard]] Source field(Pattern pattern, FieldPart part, Dialect dialect);

/// Draws the cells of a field into ink textures: the final colour of each cell, or for a screen dither its
/// lower and upper ink and the share between them.
[[nodiscard]] Source inks(Dither dither, Dialect dialect);

/// Draws the ramp of a smooth look into a texture of rampLength x 1.
[[nodiscard]] Source ramp(Dialect dialect);

/// Draws the inks of a look that is not smooth into a texture of maxLevels x 1.
[[nodiscard]] Source steps(Dialect dialect);

/// Draws the picture from what the passes above have left.
[[nodiscard]] Source composite(Dither dither, Dialect dialect);

/// Draws the map of a screen dither, which never changes for a size and cell: of each pixel the number of the
/// cell that it takes its inks from, in the three colours, the lowest byte in red, and in alpha the share
/// above which it takes the upper one. The map of characters has a bit for each of them that has ink there.
[[nodiscard]] Source map(Dither dither, Dialect dialect);

/// Draws the picture without them, evaluating the pattern at every pixel: for cells of one pixel.
[[nodiscard]] Source direct(Pattern pattern, Dither dither, Dialect dialect);

} // namespace tessel::shaders
