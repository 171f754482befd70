// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <cstddef>

namespace tessel {

/// The screen length, in points, at which a look's `pixel` means points: that of the desktop.
inline constexpr float desktopReference = 1512.0F;

/// The same for the thumbnail in the handle, whose cells would vanish at the desktop's measure.
inline constexpr float thumbReference = 520.0F;

struct GridSize
{
    int width = 0;
    int height = 0;
    bool operator==(const GridSize&) const = default;
};

[[nodiscard]] constexpr std::size_t cellCount(GridSize grid)
{
    return static_cast<std::size_t>(grid.width) * static_cast<std::size_t>(grid.height);
}

/// The side, in target pixels, of one cell of `look` on a target of `width` x `height` pixels; at least 1,
/// and no longer than the target.
[[nodiscard]] float cellSize(const Look& look, double width, double height, float reference);

/// How many cells cover the target, the last column and row cut off where they do not fit.
[[nodiscard]] GridSize fieldSize(double width, double height, float cell);

/// The reference of the editor's preview, so that it shows cells at the size that the desktop will.
/// \param drawable larger side of the preview in pixels
/// \param screen larger side of its screen in points, 0 where there is no screen
/// \param scaleFactor pixels per point of that screen
[[nodiscard]] float editorReference(double drawable, double screen, double scaleFactor);

} // namespace tessel
