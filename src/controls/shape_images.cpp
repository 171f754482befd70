// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/shape_images.h"

#include "controls/art_pixels.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tessel {

namespace {

std::vector<QColor> coloursIn(const QString& text)
{
    std::vector<QColor> colours;
    for (const QString& name : text.split(u'-', Qt::SkipEmptyParts))
        colours.emplace_back(u'#' + name);
    return colours;
}

// How much of a shadow's colour is left at a signed distance from its edge: a Gaussian's integral, closely
// enough.
double shade(double distance, double blur)
{
    return 0.5 * std::erfc(distance / (blur / 2.0 * std::sqrt(2.0)));
}

QImage drawShadow(const QColor& colour, int blur, int radius)
{
    const int border = blur + radius;
    const int side = 2 * border + 1;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < side; ++x) {
            // From the corner's centre, which lies where blur and radius end.
            const double right = std::max(0, std::abs(x - border));
            const double down = std::max(0, std::abs(y - border));
            QColor here = colour;
            here.setAlphaF(
                static_cast<float>(colour.alphaF() * shade(std::hypot(right, down) - radius, blur)));
            line[x] = qPremultiply(here.rgba());
        }
    }
    return image;
}

QImage drawShape(const QStringList& parts)
{
    const QString& kind = parts[0];
    const std::vector<QColor> colours = coloursIn(parts[1]);
    const QStringList sides = parts[2].split(u'x');
    const QSize cells(sides.value(0).toInt(), sides.value(1).toInt());
    const double scale = parts[3].toDouble();
    constexpr int mostCells = 512;
    if (colours.empty() || cells.isEmpty() || cells.width() > mostCells || cells.height() > mostCells)
        return {};
    if (kind == QLatin1String("even"))
        return art::ditheredRamp(colours, art::Ramp::Even, cells, scale);
    if (kind == QLatin1String("blocks"))
        return art::ditheredRamp(colours, art::Ramp::Blocks, cells, scale);
    if (kind == QLatin1String("top"))
        return art::ditheredFade(colours.front(), art::Fade::Top, cells, scale);
    if (kind == QLatin1String("bottom"))
        return art::ditheredFade(colours.front(), art::Fade::Bottom, cells, scale);
    if (kind == QLatin1String("vignette"))
        return art::ditheredVignette(colours, cells, scale);
    if (kind == QLatin1String("shadow"))
        return drawShadow(colours.front(), cells.width(), cells.height());
    return {};
}

} // namespace

ShapeImages::ShapeImages() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage ShapeImages::requestImage(const QString& id, QSize* size, const QSize& /*requestedSize*/)
{
    const QStringList parts = id.split(u'/');
    const double scale = parts.back().toDouble();
    const double largest = parts.size() == 4 ? 8 : 32; // the mark is small
    if (!(scale > 0) || scale > largest)
        return {};
    QImage image;
    if (parts.size() == 4)
        image = drawShape(parts);
    else if (parts.front() == QLatin1String("mark"))
        image = art::productMark(scale);
    *size = image.size();
    return image;
}

} // namespace tessel
