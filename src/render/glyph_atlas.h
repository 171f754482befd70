// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

#include <string_view>

namespace tessel {

/// The characters of the ASCII dither from blank to dense; only the first 16 are drawn.
inline constexpr std::string_view glyphRamp = " .,:;-~=+*xoawm#@";
inline constexpr int glyphCount = 16;

/// The side of a character's cell in the atlas, in pixels.
inline constexpr int glyphCellSize = 48;

/// White characters on black in one row, 8-bit grey, 768 x 48: character i of the ramp, optically centred,
/// in cell i. Needs a QGuiApplication for its fonts.
[[nodiscard]] QImage drawGlyphAtlas();

} // namespace tessel
