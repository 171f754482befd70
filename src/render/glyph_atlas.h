// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

#include <string_view>

namespace tessel {

/// The characters of the ASCII dither: sixteen from blank to dense, those that draw edges, then those with as
/// much ink as one of the sixteen.
inline constexpr std::string_view atlasGlyphs = " .,:;-~=+*xoawm#/\\|_unzsvtekR8&$";
inline constexpr int glyphCount = atlasGlyphs.size();

/// The side of a character's cell in the atlas, in pixels.
inline constexpr int glyphCellSize = 48;

/// White characters on black in one row, 8-bit grey, 1536 x 48: character i, optically centred,
/// in cell i. Needs a QGuiApplication for its fonts.
[[nodiscard]] QImage drawGlyphAtlas();

} // namespace tessel
