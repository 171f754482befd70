// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/geometry.h"

#include "render/limits.h"

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

/// Fine lines need every pixel when they are smooth; what is soft does not.
float smoothCellSize(Pattern pattern)
{
    return entry(pattern).detail == Detail::fineLines ? 1.0F : 2.0F;
}

} // namespace

float cellSize(const Look& look, double width, double height, float reference)
{
    if (look.dither == Dither::smooth)
        return smoothCellSize(look.pattern);
    const auto longSide = static_cast<float>(std::max(width, height));
    float cell = std::max(std::round(limits::pixel.apply(look.pixel) * longSide / reference), 1.0F);
    if (look.dither == Dither::ascii)
        cell = std::max(std::round(cell * 1.6F), std::round(longSide * 9.0F / reference));
    return std::max(std::min(cell, longSide), 1.0F);
}

GridSize fieldSize(double width, double height, float cell)
{
    return {static_cast<int>(std::ceil(width / cell)), static_cast<int>(std::ceil(height / cell))};
}

float editorReference(double drawable, double screen, double scaleFactor)
{
    const double screenPixels = screen * scaleFactor;
    if (!(screenPixels > 0) || !(drawable > 0))
        return desktopReference;
    return static_cast<float>(desktopReference * std::min(drawable / screenPixels, 1.0));
}

} // namespace tessel
