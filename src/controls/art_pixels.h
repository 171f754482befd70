// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QRegion>
#include <QSize>

#include <vector>

/// The interface's own pixels: cells of 2 points, of which the outlines of its shells and its dithered ramps
/// are made. On a screen of any scale a cell begins and ends on whole device pixels.
namespace tessel::art {

/// Side of a cell, in points.
inline constexpr int cellPoints = 2;

/// Where the cell of that index begins, in device pixels.
int edge(int cell, qreal scale);

/// How many cells every row of a round corner is drawn in, from the outermost row; radius in cells.
std::vector<int> cornerInsets(int radius);

/// The plain rectangles that together are one with stepped corners: the highest one first, then ever wider
/// and flatter ones. Each reaches through to the other side, so that there are no seams between them. size in
/// device pixels, radius in cells; corners that do not fit are made smaller.
std::vector<QRect> steppedRects(QSize size, int radius, qreal scale);

/// The same as a region, for a window that has no compositing manager to shape it.
QRegion steppedShape(QSize size, int radius, qreal scale);

/// How a ramp divides its length among its colours.
enum class Ramp
{
    Even,   ///< the first colour at one end, the last at the other
    Blocks, ///< a block of the same length for each, and seams between
};

/// A picture of columns x rows cells in which a dither mixes the colours from left to right.
QImage ditheredRamp(const std::vector<QColor>& colours, Ramp ramp, QSize cells, qreal scale);

/// Which end of a fade is covered.
enum class Fade
{
    Top,
    Bottom,
};

/// A colour that a dither lets through less and less towards the covered end.
QImage ditheredFade(const QColor& colour, Fade fade, QSize cells, qreal scale);

/// Two colours mixed by their distance from the middle: the first there, the second in the corners.
QImage ditheredVignette(const std::vector<QColor>& colours, QSize cells, qreal scale);

/// The product's mark, a bowl with steam: 18 x 18 art pixels of one point each.
QImage productMark(qreal scale);

} // namespace tessel::art
