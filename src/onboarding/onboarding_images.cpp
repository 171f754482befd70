// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "onboarding/onboarding_images.h"

#include "base/bayer.h"
#include "controls/art_pixels.h"

#include <QPainter>
#include <QPainterPath>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace tessel {

namespace {

constexpr QRgb soot = 0xFF0A0806;
constexpr QRgb steam = 0xFFF6EDE2;
constexpr QRgb stock = 0xFFB9AB9C;

/// Art of larger cells than the usual ones: its scale, for cells of so many points.
qreal scaleFor(int cell, qreal scale)
{
    return scale * cell / art::cellPoints;
}

double smoothStep(double from, double to, double at)
{
    const double share = std::clamp((at - from) / (to - from), 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

/// \param from the column from which the picture is seen
/// \param to the one from which all of it is
QImage drawDissolve(int from, int to, qreal scale)
{
    static constexpr QSize cells(220, 140);
    static constexpr int lowest = 110; ///< row from which it sinks into the soot again
    static constexpr int depth = 9;
    return art::drawCells(cells, scaleFor(4, scale), [=](int column, int row) {
        const double down = std::clamp(static_cast<double>(row - lowest) / depth, 0.0, 1.0);
        const double seen = std::min(smoothStep(from, to, column), 1 - down);
        const double threshold = bayerThreshold(static_cast<unsigned>(column), static_cast<unsigned>(row), 3);
        return seen > threshold ? 0U : soot;
    });
}

/// A drawing in characters, one for a cell.
template<std::size_t Rows, typename Ink>
QImage drawArt(const std::array<std::string_view, Rows>& rows, int cell, qreal scale, Ink inkOf)
{
    const QSize cells(static_cast<int>(rows.front().size()), static_cast<int>(Rows));
    return art::drawCells(cells, scaleFor(cell, scale), [&](int column, int row) {
        return inkOf(rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
    });
}

/// The bowl of the panel's icon, glazed and lit from the top left.
QImage drawBowl(qreal scale)
{
    static constexpr std::array<std::string_view, 13> rows = {
        ".gggggggggggggggggsgs.", //
        "g....................s", //
        "g...g...gg...g...g...s", //
        "g....................s", //
        "ggggggggggggggggggsgss", //
        "gggwwggggggggsgssdsddd", //
        ".gwgggggggggsgssdsddd.", //
        "..gggggggggggssdsddd..", //
        "...gggggggggssssddd...", //
        "....gggggggssssddd....", //
        "......ggggggssdd......", //
        "........gggssd........", //
        "......gggggsssdd......", //
    };
    return drawArt(rows, 14, scale, [](char mark) -> QRgb {
        switch (mark) {
        case 'g':
            return steam;
        case 's':
            return 0xFFCDBDAA;
        case 'd':
            return 0xFF93806C;
        case 'w':
            return 0xFFFFFFFF;
        default:
            return 0;
        }
    });
}

QImage drawSteam(qreal scale)
{
    static constexpr std::array<std::string_view, 56> rows = {
        "................1...............1...1...........1...1...........", //
        "................................................................", //
        "..................1...............1...1...........1.............", //
        "................................................................", //
        "................1.1.1.............1.1.........1.1...............", //
        "................................................................", //
        "..................1.2.1...........1.1.1.......1.1...............", //
        "................................................................", //
        "..................1.2.1.........1.2.2.......1.2.1...............", //
        ".....................2...........2...........2..................", //
        "..................1.2.2.........1.2.1.....1.2.2.................", //
        "...................2.............2.2.......2....................", //
        "..................1.2.2.........2.2.1.....2.2.2.................", //
        "...................2.2...........2.........2.2..................", //
        "..................2.2.2.......2.2.2.......2.2.1.................", //
        "...................2.2.........2...........2....................", //
        "..................2.3.1.......2.2.......1.2.2...................", //
        ".................1.3.2.......2.3.2.......2.3.2..................", //
        "..................333.......1.332.........333...................", //
        ".................2.3.........3.3...........3....................", //
        "................233.2.......233.1.........333...................", //
        ".................3.3.........3.2.........2.3.2..................", //
        "................333.........333...........333.1.................", //
        "...............2.3.2.......2.3.2...........3.3..................", //
        "..............1.333.........333...........23332.................", //
        "...............333.........233.............333..................", //
        "..............23332.......13333...........13333.................", //
        "...............3.3.........3.3.............2.3.2................", //
        "..............3332..........333.............333.1...............", //
        ".............2.332.........233.2.............333................", //
        "..............333...........333.............23332...............", //
        ".............333.............333.............333................", //
        "............13333...........33331............3333...............", //
        ".............333.............333.............2.332..............", //
        ".............3333...........23332.............333...............", //
        ".............333.............333...............333..............", //
        ".............3333............3333.............23331.............", //
        ".............333.............2.332.............333..............", //
        "..............333.............333.............23332.............", //
        "..............33...............333.............333..............", //
        "..............333.............23331...........13332.............", //
        "...............332.............333.............333..............", //
        "..............233..............3332...........13332.............", //
        "...............333.............333.............333..............", //
        "..............13332.............333...........13331.............", //
        "...............333..............33.............333..............", //
        "................333.............333...........233...............", //
        "...............2.3...............3.............333..............", //
        "................333.............333...........333...............", //
        ".................33.............33.............331..............", //
        "................333.............333...........333...............", //
        ".................332.............3.............3................", //
        "................233.............332...........332...............", //
        ".................3...............3...........2.3................", //
        "..................3.............2.2...........3.................", //
        "...............................................2................", //
    };
    return drawArt(rows, 4, scale, [](char mark) -> QRgb {
        switch (mark) {
        case '3':
            return steam;
        case '2':
            return stock;
        case '1':
            return 0xFF6B5D50;
        default:
            return 0;
        }
    });
}

QImage drawRim(const QString& what, const QString& glaze, qreal scale)
{
    static constexpr art::Bowl tile{
        .radius = 35, .foot = 1, .glaze = 3, .lit = 0.22, .shade = -0.4, .ground = soot};
    static constexpr art::Bowl handle{.radius = 9, .foot = 1, .glaze = 1, .lit = 0.5, .shade = -0.5};
    return art::bowlFromAbove(what == QLatin1String("tile") ? tile : handle,
                              glaze == QLatin1String("lit") ? art::Glaze::Lit : art::Glaze::Resting, {},
                              scale);
}

QImage drawPointer(qreal scale)
{
    static const QPolygonF outline(
        {{2, 1}, {2, 19}, {7, 14.5}, {10, 21.5}, {13, 20.2}, {10, 13.5}, {16.5, 13.5}});
    QImage image((QSizeF(18, 24) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.setPen(QPen(QColor(steam), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(QColor(soot));
    painter.drawPolygon(outline);
    return image;
}

QImage draw(const QStringList& parts, qreal scale)
{
    const QString& what = parts.front();
    const QString kind = parts.value(1);
    if (what == QLatin1String("dissolve"))
        return kind == QLatin1String("wide") ? drawDissolve(94, 194, scale) : drawDissolve(106, 180, scale);
    if (what == QLatin1String("tile") || what == QLatin1String("handle"))
        return drawRim(what, kind, scale);
    if (what == QLatin1String("bowl"))
        return drawBowl(scale);
    if (what == QLatin1String("steam"))
        return drawSteam(scale);
    return what == QLatin1String("pointer") ? drawPointer(scale) : QImage();
}

} // namespace

OnboardingImages::OnboardingImages() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage OnboardingImages::requestImage(const QString& id, QSize* size, const QSize& /*requestedSize*/)
{
    static constexpr double largestScale = 4;
    const QStringList parts = id.split(u'/');
    const double scale = std::clamp(parts.back().toDouble(), 1.0, largestScale);
    QImage image = draw(parts, scale);
    *size = image.size();
    return image;
}

} // namespace tessel
