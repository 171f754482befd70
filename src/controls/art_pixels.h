// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QRegion>
#include <QSize>

#include <functional>
#include <vector>

/// The interface's own pixels: cells of 2 points, of which the outlines of its shells and its dithered ramps
/// are made. On a screen of any scale a cell begins and ends on whole device pixels.
namespace tessel::art {

/// Side of a cell, in points.
inline constexpr int cellPoints = 2;

/// Where the cell of that index begins, in device pixels.
int edge(int cell, qreal scale);

/// What a cell of a picture is filled with, premultiplied.
using CellColour = std::function<QRgb(int column, int row)>;

/// A picture of columns x rows cells.
QImage drawCells(QSize cells, qreal scale, const CellColour& colourOf);

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

/// A bowl seen from above, in cells: a foot and a glazed rim, and in them a round opening.
struct Bowl
{
    int radius = 0; ///< of the whole
    int foot = 0;
    int glaze = 0;
    /// How far towards the light, which is at the top left, the glaze is lit, and how far from it in shade: 1
    /// is right under it, -1 opposite.
    double lit = 0;
    double shade = 0;
    QRgb ground = 0; ///< in the corners
};

/// How a bowl's glaze takes the light.
enum class Glaze
{
    Resting,
    Lit, ///< hovered, pressed or chosen
};

/// \param opening lies in the middle and is seen through the opening; a null image leaves that transparent
QImage bowlFromAbove(const Bowl& bowl, Glaze glaze, const QImage& opening, qreal scale);

} // namespace tessel::art
