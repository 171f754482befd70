// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/status_icon.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QImage>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

using tessel::bowlMask;

constexpr std::array pngSides{16, 22, 24, 32, 48, 64, 128, 256, 512};

/// The mask has a margin of the tile around it.
constexpr int maskSide = 24;
constexpr int margin = 1;
constexpr int tileSide = maskSide + 2 * margin;

/// The last row of the mask that is steam.
constexpr int lastSteamRow = 7;

/// The last row of the mask in which the broth is seen.
constexpr int lastBrothRow = 13;

constexpr auto tile = "#1F1915";
constexpr auto steam = "#F6EDE2";
constexpr auto bowl = "#FFB454";
constexpr auto broth = "#6E2E14";

/// How far the tile's corners are cut, row by row from the top.
constexpr std::array corner{3, 1, 1};

/// The colour of a place on the tile; nullptr outside of it.
const char* colorAt(int column, int row)
{
    const int fromEdge = std::min(row, tileSide - 1 - row);
    const int cut =
        fromEdge < static_cast<int>(corner.size()) ? corner.at(static_cast<std::size_t>(fromEdge)) : 0;
    if (column < cut || column >= tileSide - cut)
        return nullptr;
    const int x = column - margin;
    const int y = row - margin;
    if (x < 0 || y < 0 || x >= maskSide || y >= maskSide)
        return tile;
    const char kind = bowlMask().at(static_cast<std::size_t>(y))[static_cast<std::size_t>(x)];
    if (kind == 'R')
        return y <= lastSteamRow ? steam : bowl;
    if (kind == 'C')
        return y <= lastBrothRow ? broth : steam; // below there is a glint on the bowl
    return tile;
}

/// Everything is drawn large and made smaller evenly, so that art pixels stay as even as a size allows.
QImage drawTile()
{
    constexpr int pixel = 64;
    QImage image(tileSide * pixel, tileSide * pixel, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const char* color = colorAt(x / pixel, y / pixel))
                image.setPixelColor(x, y, QColor(QLatin1String(color)));
    return image;
}

/// A row's stretch of one colour.
QByteArray rectangle(int column, int row, int length, const char* color)
{
    return QByteArray("<rect x=\"") + QByteArray::number(column) + "\" y=\"" + QByteArray::number(row) +
           "\" width=\"" + QByteArray::number(length) + R"(" height="1" fill=")" + color + "\"/>\n";
}

/// \param colorOf of a place; nullptr for none
template<typename ColorOf>
QByteArray svg(int side, int shownSide, ColorOf colorOf)
{
    const QByteArray box = QByteArray::number(side);
    const QByteArray shown = QByteArray::number(shownSide);
    QByteArray text = R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" + shown + R"(" height=")" + shown +
                      R"(" viewBox="0 0 )" + box + ' ' + box +
                      R"(" shape-rendering="crispEdges">)"
                      "\n";
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side;) {
            const char* color = colorOf(column, row);
            int end = column + 1;
            while (end < side && colorOf(end, row) == color)
                ++end;
            if (color != nullptr)
                text += rectangle(column, row, end - column, color);
            column = end;
        }
    }
    return text + "</svg>\n";
}

/// Desktops give it their own colour.
const char* symbolicColorAt(int column, int row)
{
    const char kind = bowlMask().at(static_cast<std::size_t>(row))[static_cast<std::size_t>(column)];
    return kind == 'R' ? "#2e3436" : nullptr;
}

/// The path of an icon, in a folder that is made.
QString iconFile(const QString& folder, const QString& size, const QString& name)
{
    const QString place = folder + QStringLiteral("/hicolor/") + size + QStringLiteral("/apps");
    QDir().mkpath(place);
    return place + QStringLiteral("/org.tesselbroth.TesselBroth") + name;
}

bool write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

bool drawIcons(const QString& folder)
{
    bool isDone = true;
    const QImage large = drawTile();
    for (const int side : pngSides) {
        const QString size = QStringLiteral("%1x%1").arg(side);
        isDone &= large.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                      .save(iconFile(folder, size, QStringLiteral(".png")));
    }
    isDone &= write(iconFile(folder, QStringLiteral("scalable"), QStringLiteral(".svg")),
                    svg(tileSide, 128, colorAt));
    isDone &= write(iconFile(folder, QStringLiteral("symbolic"), QStringLiteral("-symbolic.svg")),
                    svg(maskSide, 16, symbolicColorAt));
    return isDone;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: icons FOLDER\n", stderr);
        return 2;
    }
    if (!drawIcons(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "icons: %s cannot be written\n", argv[1]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
