// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/status_icon.h"

#include <QPixmap>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

/// Where the drawn area begins in the mask, and its size.
constexpr std::size_t firstRow = 2;
constexpr std::size_t firstColumn = 1;
constexpr int artWidth = 22;
constexpr int artHeight = 20;

/// Bitmap pixels to one art pixel in statusImage(), which is at twice the resolution of points.
constexpr double artPixel = 1.5;

/// Sizes of panel icons at common scales, and those that the art fills exactly.
constexpr std::array panelSides{22, 24, 32, 44, 48, 64, 66, 96};

/// Whether there is ink at a place of the drawn area, which may be asked about beyond its borders.
bool hasInk(const IconMask& mask, int column, int row)
{
    if (column < 0 || column >= artWidth || row < 0 || row >= artHeight)
        return false;
    const std::string_view line = mask[firstRow + static_cast<std::size_t>(row)];
    return line[firstColumn + static_cast<std::size_t>(column)] == 'R';
}

bool touchesInk(const IconMask& mask, int column, int row)
{
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            if (hasInk(mask, column + dx, row + dy))
                return true;
        }
    }
    return false;
}

/// The first pixel whose centre is not before a border.
int firstPixelFrom(double border)
{
    return static_cast<int>(std::ceil(border - 0.5));
}

void fill(QImage& image, const QRect& rectangle, QRgb color)
{
    const QRect inside = rectangle & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            image.setPixel(x, y, color);
    }
}

} // namespace

const IconMask& bowlMask()
{
    static constexpr IconMask mask{
        "........................", //
        "........................", //
        ".....RR....RR....RR.....", //
        "......RR....RR....RR....", //
        "......RR....RR....RR....", //
        ".....RR....RR....RR.....", //
        "....RR....RR....RR......", //
        "....RR....RR....RR......", //
        "........................", //
        "..RRRRRRRRRRRRRRRRRRRR..", //
        ".RCCCCCCCCCCCCCCCCCCCCR.", //
        ".RCCCRCCCRRCCCRCCCRCCCR.", //
        ".RCCCCCCCCCCCCCCCCCCCCR.", //
        ".RRRRRRRRRRRRRRRRRRRRRR.", //
        ".RRRCCRRRRRRRRRRRRRRRRR.", //
        "..RCRRRRRRRRRRRRRRRRRR..", //
        "...RRRRRRRRRRRRRRRRRR...", //
        "....RRRRRRRRRRRRRRRR....", //
        ".....RRRRRRRRRRRRRR.....", //
        ".......RRRRRRRRRR.......", //
        ".........RRRRRR.........", //
        ".......RRRRRRRRRR.......", //
        "........................", //
        "........................", //
    };
    return mask;
}

QImage statusImage(const IconMask& mask)
{
    const QSize size(firstPixelFrom(artWidth * artPixel), firstPixelFrom(artHeight * artPixel));
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int row = 0; row < artHeight; ++row) {
        // Snapped from the bottom, where the origin of the drawing is.
        const int below = artHeight - 1 - row;
        const int bottom = size.height() - firstPixelFrom(below * artPixel);
        const int top = size.height() - firstPixelFrom((below + 1) * artPixel);
        for (int column = 0; column < artWidth; ++column) {
            if (!hasInk(mask, column, row))
                continue;
            const int left = firstPixelFrom(column * artPixel);
            const int right = firstPixelFrom((column + 1) * artPixel);
            fill(image, QRect(left, top, right - left, bottom - top), qRgb(0, 0, 0));
        }
    }
    return image;
}

QImage panelImage(const IconMask& mask, int side, PanelTone tone)
{
    const QRgb ink = tone == PanelTone::dark ? qRgb(242, 242, 242) : qRgb(32, 32, 32);
    const QRgb rim = tone == PanelTone::dark ? qRgba(0, 0, 0, 190) : qRgba(255, 255, 255, 190);
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const int pixel = std::max(side / artWidth, 1);
    const QPoint origin((side - artWidth * pixel) / 2, (side - artHeight * pixel) / 2);
    for (int row = -1; row <= artHeight; ++row) {
        for (int column = -1; column <= artWidth; ++column) {
            const QRect square(origin + QPoint(column, row) * pixel, QSize(pixel, pixel));
            if (hasInk(mask, column, row))
                fill(image, square, ink);
            else if (touchesInk(mask, column, row))
                fill(image, square, rim);
        }
    }
    return image;
}

QIcon statusIcon(PanelTone tone)
{
    QIcon icon;
    for (const int side : panelSides)
        icon.addPixmap(QPixmap::fromImage(panelImage(bowlMask(), side, tone)));
    return icon;
}

PanelTone panelTone(const QString& desktop, const QColor& windowColor)
{
    for (const QString& name : desktop.split(QLatin1Char(':'))) {
        if (name == QStringLiteral("GNOME") || name == QStringLiteral("XFCE"))
            return PanelTone::dark;
    }
    return windowColor.lightness() < 128 ? PanelTone::dark : PanelTone::light;
}

} // namespace tessel
