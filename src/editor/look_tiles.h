// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editor/tile_model.h"

#include <vector>

namespace tessel {

/// A tile for every pattern, and for every dither; both in raw order.
[[nodiscard]] std::vector<Tile> patternTiles();
[[nodiscard]] std::vector<Tile> ditherTiles();

[[nodiscard]] TileChoice patternChoice();
[[nodiscard]] TileChoice ditherChoice();

} // namespace tessel
