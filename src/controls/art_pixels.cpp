// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/art_pixels.h"

#include "base/bayer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace tessel::art {
namespace {

// Whether a cell takes the second colour where there is such a share of it.
bool takesSecond(int column, int row, double share)
{
    return share > bayerThreshold(static_cast<unsigned>(column), static_cast<unsigned>(row), 2);
}

std::vector<QRgb> premultiplied(const std::vector<QColor>& colours)
{
    std::vector<QRgb> values;
    values.reserve(colours.size());
    for (const QColor& colour : colours)
        values.push_back(qPremultiply(colour.rgba()));
    return values;
}

// The colour of a cell at a position along the colours, 0 being the first and 1 the second.
QRgb mixed(const std::vector<QRgb>& colours, double position, int column, int row)
{
    const auto last = static_cast<double>(colours.size() - 1);
    const double at = std::clamp(position, 0.0, last);
    const auto first = std::min(static_cast<std::size_t>(at), colours.size() - 1);
    const auto second = std::min(first + 1, colours.size() - 1);
    return colours[takesSecond(column, row, at - static_cast<double>(first)) ? second : first];
}

constexpr QRgb foot = 0xFF0A0806;

// Lit from the top left: there, across, and opposite.
using GlazeColours = std::array<QRgb, 3>;
constexpr GlazeColours restingGlaze = {0xFFF6EDE2, 0xFFCDBDAA, 0xFF93806C};
constexpr GlazeColours litGlaze = {0xFFFFE3B0, 0xFFFFB454, 0xFFC2701F};

QRgb glazeAt(const GlazeColours& colours, const Bowl& bowl, int column, int row)
{
    const double x = column + 0.5 - bowl.radius;
    const double y = row + 0.5 - bowl.radius;
    const double toLight = -(x + y) / std::sqrt(2.0 * (x * x + y * y));
    if (toLight > bowl.lit)
        return colours[0];
    return toLight < bowl.shade ? colours[2] : colours[1];
}

// A round thing of cells, in the middle of a square of them.
class Disc
{
public:
    Disc(int radius, int squareRadius)
        : m_insets(cornerInsets(radius))
        , m_margin(squareRadius - radius)
        , m_side(2 * radius)
    {
    }

    [[nodiscard]] bool contains(int column, int row) const
    {
        const int line = row - m_margin;
        const int place = column - m_margin;
        if (line < 0 || line >= m_side)
            return false;
        const int inset = m_insets[static_cast<std::size_t>(std::min(line, m_side - 1 - line))];
        return place >= inset && place < m_side - inset;
    }

private:
    std::vector<int> m_insets;
    int m_margin;
    int m_side;
};

} // namespace

int edge(int cell, qreal scale)
{
    return static_cast<int>(std::lround(cell * cellPoints * scale));
}

QImage drawCells(QSize cells, qreal scale, const CellColour& colourOf)
{
    QImage image(edge(cells.width(), scale), edge(cells.height(), scale),
                 QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < cells.height(); ++row) {
        for (int column = 0; column < cells.width(); ++column) {
            const QRgb colour = colourOf(column, row);
            for (int y = edge(row, scale); y < edge(row + 1, scale); ++y) {
                auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
                std::fill(line + edge(column, scale), line + edge(column + 1, scale), colour);
            }
        }
    }
    return image;
}

std::vector<int> cornerInsets(int radius)
{
    std::vector<int> insets;
    for (int row = 0; row < radius; ++row) {
        const double height = radius - row - 0.5;
        insets.push_back(
            static_cast<int>(std::lround(radius - std::sqrt(radius * radius - height * height))));
    }
    return insets;
}

std::vector<QRect> steppedRects(QSize size, int radius, qreal scale)
{
    while (radius > 0 && 2 * edge(radius, scale) > std::min(size.width(), size.height()))
        --radius;
    std::vector<int> insets = cornerInsets(radius);
    insets.push_back(0); // below the corner
    std::vector<QRect> rects;
    for (std::size_t row = 0; row < insets.size(); ++row) {
        if (row > 0 && insets[row] == insets[row - 1])
            continue;
        const int side = edge(insets[row], scale);
        const int top = edge(static_cast<int>(row), scale);
        rects.emplace_back(side, top, size.width() - 2 * side, size.height() - 2 * top);
    }
    return rects;
}

QRegion steppedShape(QSize size, int radius, qreal scale)
{
    QRegion shape;
    for (const QRect& rect : steppedRects(size, radius, scale))
        shape += rect;
    return shape;
}

QImage ditheredRamp(const std::vector<QColor>& colours, Ramp ramp, QSize cells, qreal scale)
{
    if (colours.empty())
        return {};
    const std::vector<QRgb> values = premultiplied(colours);
    const auto count = static_cast<double>(values.size());
    return drawCells(cells, scale, [&](int column, int row) {
        const double along = (column + 0.5) / cells.width();
        const double position = ramp == Ramp::Blocks ? along * count - 0.5 : along * (count - 1);
        return mixed(values, position, column, row);
    });
}

QImage ditheredFade(const QColor& colour, Fade fade, QSize cells, qreal scale)
{
    const QRgb value = qPremultiply(colour.rgba());
    return drawCells(cells, scale, [&](int column, int row) {
        const double down = (row + 0.5) / cells.height();
        const bool covered = takesSecond(column, row, down) == (fade == Fade::Bottom);
        return covered ? value : 0U;
    });
}

QImage ditheredVignette(const std::vector<QColor>& colours, QSize cells, qreal scale)
{
    if (colours.empty())
        return {};
    const std::vector<QRgb> values = premultiplied(colours);
    return drawCells(cells, scale, [&](int column, int row) {
        const double x = (column + 0.5) / cells.width() * 2 - 1;
        const double y = (row + 0.5) / cells.height() * 2 - 1;
        return mixed(values, std::hypot(x, y) / std::sqrt(2.0) * static_cast<double>(values.size() - 1),
                     column, row);
    });
}

QImage productMark(qreal scale)
{
    static constexpr std::array<std::string_view, 18> lines = {
        "....s....s....s...", //
        ".....s....s....s..", //
        ".....s....s....s..", //
        "....s....s....s...", //
        "...s....s....s....", //
        "...s....s....s....", //
        "..................", //
        ".gggggggggggggggg.", //
        "gbbbbbbbbbbbbbbbbg", //
        "gbbfbbbffbbbfbbbbg", //
        "gggggggggggggggggg", //
        ".gwgggggggggggggs.", //
        ".ggwggggggggggggs.", //
        "..ggggggggggggss..", //
        "...gggggggggsss...", //
        ".....gggggsss.....", //
        "......ssssss......", //
        ".....gggggsss.....", //
    };
    const auto inkOf = [](char mark) -> QRgb {
        switch (mark) {
        case 's': // steam, and the bowl's shadow
            return 0xFFB9AB9C;
        case 'g': // glaze
            return 0xFFF6EDE2;
        case 'w':
            return 0xFFFFFFFF;
        case 'b': // broth
            return 0xFF7A2E0E;
        case 'f': // fat
            return 0xFFFFB454;
        default:
            return 0;
        }
    };
    constexpr int side = static_cast<int>(lines.size());
    return drawCells(QSize(side, side), scale / cellPoints, [&](int column, int row) {
        return inkOf(lines[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
    });
}

QImage bowlFromAbove(const Bowl& bowl, Glaze glaze, const QImage& opening, qreal scale)
{
    const GlazeColours& colours = glaze == Glaze::Lit ? litGlaze : restingGlaze;
    const Disc whole(bowl.radius, bowl.radius);
    const Disc rim(bowl.radius - bowl.foot, bowl.radius);
    const Disc open(bowl.radius - bowl.foot - bowl.glaze, bowl.radius);
    const int side = 2 * bowl.radius;
    QImage image = drawCells({side, side}, scale, [&](int column, int row) -> QRgb {
        if (!whole.contains(column, row))
            return bowl.ground;
        if (open.contains(column, row))
            return 0;
        return rim.contains(column, row) ? glazeAt(colours, bowl, column, row) : foot;
    });
    if (opening.isNull())
        return image;
    // Where the scale has just changed, the picture is still one of the former, and may be too small.
    const int start = (image.width() - opening.width()) / 2;
    const auto inside = [&](int place) { return std::clamp(place - start, 0, opening.width() - 1); };
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            if (!open.contains(column, row))
                continue;
            for (int y = edge(row, scale); y < edge(row + 1, scale); ++y) {
                auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
                for (int x = edge(column, scale); x < edge(column + 1, scale); ++x)
                    line[x] = opening.pixel(inside(x), inside(y));
            }
        }
    }
    return image;
}

} // namespace tessel::art
