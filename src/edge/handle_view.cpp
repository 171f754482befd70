// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "edge/handle_view.h"

#include "controls/art_pixels.h"

#include <array>
#include <cmath>

namespace tessel {

namespace {

/// In cells: the whole handle is 18 wide, a foot of one and a glaze of one around the disc.
constexpr int outerRadius = 9;
constexpr int footWidth = 1;
constexpr int glazeWidth = 1;
constexpr int pressedGlazeWidth = 2;

constexpr QRgb foot = 0xFF0A0806;

/// Lit from the top left: there, across, and opposite.
using Glaze = std::array<QRgb, 3>;
constexpr Glaze restingGlaze{0xFFF6EDE2, 0xFFCDBDAA, 0xFF93806C};
constexpr Glaze litGlaze{0xFFFFE3B0, 0xFFFFB454, 0xFFC2701F};

/// How far from the direction of the light a part counts as lit or as turned away.
constexpr double lightReach = 0.5;

QRgb glazeAt(const Glaze& glaze, int column, int row)
{
    const double x = column + 0.5 - outerRadius;
    const double y = row + 0.5 - outerRadius;
    const double toLight = -(x + y) / std::sqrt(2.0 * (x * x + y * y));
    if (toLight > lightReach)
        return glaze[0];
    return toLight < -lightReach ? glaze[2] : glaze[1];
}

/// Whether a cell of the handle lies in the disc of that radius around its middle.
bool isWithin(int radius, int column, int row)
{
    const int margin = outerRadius - radius;
    const int line = row - margin;
    const int place = column - margin;
    if (line < 0 || line >= 2 * radius)
        return false;
    static const std::array<std::vector<int>, outerRadius + 1> insets = [] {
        std::array<std::vector<int>, outerRadius + 1> all;
        for (int each = 0; each <= outerRadius; ++each)
            all.at(static_cast<std::size_t>(each)) = art::cornerInsets(each);
        return all;
    }();
    const auto fromEnd = static_cast<std::size_t>(std::min(line, 2 * radius - 1 - line));
    const int inset = insets.at(static_cast<std::size_t>(radius)).at(fromEnd);
    return place >= inset && place < 2 * radius - inset;
}

} // namespace

QImage drawHandle(const QImage& picture, bool hovered, bool pressed, double scale)
{
    const int side = art::edge(2 * outerRadius, scale);
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const Glaze& glaze = hovered || pressed ? litGlaze : restingGlaze;
    const int discRadius = outerRadius - footWidth - (pressed ? pressedGlazeWidth : glazeWidth);
    const int pictureStart = (side - picture.width()) / 2;
    for (int row = 0; row < 2 * outerRadius; ++row) {
        for (int column = 0; column < 2 * outerRadius; ++column) {
            if (!isWithin(outerRadius, column, row))
                continue;
            const bool isPicture = isWithin(discRadius, column, row);
            const QRgb color =
                isWithin(outerRadius - footWidth, column, row) ? glazeAt(glaze, column, row) : foot;
            for (int y = art::edge(row, scale); y < art::edge(row + 1, scale); ++y) {
                auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
                for (int x = art::edge(column, scale); x < art::edge(column + 1, scale); ++x)
                    line[x] = isPicture ? picture.pixel(x - pictureStart, y - pictureStart) : color;
            }
        }
    }
    return image;
}

void HandleView::setHovered(bool hovered)
{
    if (std::exchange(m_hovered, hovered) == hovered)
        return;
    update();
    Q_EMIT stateChanged();
}

void HandleView::setPressed(bool pressed)
{
    if (std::exchange(m_pressed, pressed) == pressed)
        return;
    update();
    Q_EMIT stateChanged();
}

QImage HandleView::shown(const QImage& picture) const
{
    return drawHandle(picture, m_hovered, m_pressed, scale());
}

QRectF HandleView::pictureArea() const
{
    static constexpr double rim = 4;
    return boundingRect().adjusted(rim, rim, -rim, -rim);
}

} // namespace tessel
