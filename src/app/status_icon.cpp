// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/status_icon.h"

#include <QIconEngine>
#include <QPixmap>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessel {

namespace {

/// Where the drawn area begins in the mask, and its size.
constexpr std::size_t firstRow = 2;
constexpr std::size_t firstColumn = 1;
constexpr int artWidth = 22;
constexpr int artHeight = 20;

/// Bitmap pixels to one art pixel in statusImage(), which is at twice the resolution of points.
constexpr double artPixel = 1.5;

/// How much of a rim is to be seen, of 255.
constexpr int rimAlpha = 200;

/// Sizes of panel icons at common scales, and those that the art fills exactly. None from 45 to 64: of those
/// up to 64, which are what panels are sent, some take the largest and make it smaller, as 44 becomes 22
/// best.
constexpr std::array panelSides{16, 18, 20, 22, 24, 32, 33, 44, 66, 96};

struct Inks
{
    QRgb ink;
    QRgb rim; ///< 0 for none
};

/// What a mask has at a place of the drawn area, which may be asked about beyond its borders.
char cell(const IconMask& mask, int column, int row)
{
    if (column < 0 || column >= artWidth || row < 0 || row >= artHeight)
        return '.';
    const std::string_view line = mask[firstRow + static_cast<std::size_t>(row)];
    return line[firstColumn + static_cast<std::size_t>(column)];
}

bool touchesInk(const IconMask& mask, int column, int row)
{
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx)
            if (cell(mask, column + dx, row + dy) == 'R')
                return true;
    }
    return false;
}

QRgb colorOf(const IconMask& mask, int column, int row, const Inks& inks)
{
    const char kind = cell(mask, column, row);
    if (kind == 'R')
        return inks.ink;
    return kind != 'C' && touchesInk(mask, column, row) ? inks.rim : 0;
}

/// The first pixel whose centre is not before a border.
int firstPixelFrom(double border)
{
    return static_cast<int>(std::ceil(border - 0.5));
}

void fill(QImage& image, const QRect& rectangle, QRgb color)
{
    const QRect inside = rectangle & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            image.setPixel(x, y, color);
}

/// The art in the middle of a bitmap, `pixel` bitmap pixels to one of its own.
QImage drawn(const IconMask& mask, const QSize& size, double pixel, const Inks& inks)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const int left = (size.width() - firstPixelFrom(artWidth * pixel)) / 2;
    // Snapped from the bottom, where the origin of the drawing is.
    const int bottom = size.height() - (size.height() - firstPixelFrom(artHeight * pixel)) / 2;
    for (int row = -1; row <= artHeight; ++row) {
        const int below = artHeight - 1 - row;
        const int low = bottom - firstPixelFrom(below * pixel);
        const int high = bottom - firstPixelFrom((below + 1) * pixel);
        for (int column = -1; column <= artWidth; ++column) {
            const int first = firstPixelFrom(column * pixel);
            const int width = firstPixelFrom((column + 1) * pixel) - first;
            fill(image, QRect(left + first, high, width, low - high), colorOf(mask, column, row, inks));
        }
    }
    return image;
}

/// Pixels that also have a name, which panels look up first. An icon of Qt's own has either.
class NamedIcon final : public QIconEngine
{
public:
    NamedIcon(QIcon pixels, QString name) : m_pixels(std::move(pixels)), m_name(std::move(name)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override
    {
        m_pixels.paint(painter, place, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_pixels.pixmap(size, 1, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override
    {
        return m_pixels.availableSizes(mode, state);
    }
    QString iconName() override { return m_name; }
    [[nodiscard]] QIconEngine* clone() const override { return new NamedIcon(*this); }

private:
    QIcon m_pixels;
    QString m_name;
};

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
    return drawn(mask, size, artPixel, {qRgb(0, 0, 0), 0});
}

QImage panelImage(const IconMask& mask, int side, PanelTone tone, Rim rim)
{
    if (side < artWidth) {
        // Every pixel is the mean of those it stands for, a whole number of them.
        return panelImage(mask, side * artWidth, tone, rim)
            .scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_ARGB32);
    }
    const bool isDark = tone == PanelTone::dark;
    Inks inks{isDark ? qRgb(242, 242, 242) : qRgb(32, 32, 32), 0};
    if (rim == Rim::contrasting)
        inks.rim = isDark ? qRgba(0, 0, 0, rimAlpha) : qRgba(255, 255, 255, rimAlpha);
    const int halves = 2 * side / artWidth;
    return drawn(mask, {side, side}, halves / 2.0, inks);
}

QIcon statusIcon(PanelTone tone, const QString& name)
{
    QIcon icon;
    for (const int side : panelSides)
        icon.addPixmap(QPixmap::fromImage(panelImage(bowlMask(), side, tone, Rim::contrasting)));
    return name.isEmpty() ? icon : QIcon(new NamedIcon(icon, name));
}

PanelTone panelTone(std::optional<bool> isDark, const QColor& windowColor)
{
    return isDark.value_or(windowColor.lightness() < 128) ? PanelTone::dark : PanelTone::light;
}

} // namespace tessel
