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
#include <string_view>

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

QByteArray tileSvg()
{
    const QByteArray box = QByteArray::number(tileSide);
    QByteArray text = R"(<svg xmlns="http://www.w3.org/2000/svg" width="128" height="128" viewBox="0 0 )" +
                      box + ' ' + box +
                      R"(" shape-rendering="crispEdges">)"
                      "\n";
    for (int row = 0; row < tileSide; ++row) {
        for (int column = 0; column < tileSide;) {
            const char* color = colorAt(column, row);
            int end = column + 1;
            while (end < tileSide && colorAt(end, row) == color)
                ++end;
            if (color != nullptr)
                text += rectangle(column, row, end - column, color);
            column = end;
        }
    }
    return text + "</svg>\n";
}

/// The ink, which desktops give their own colour: GTK what is filled, Plasma what has the colour of text in
/// its scheme. One path, so that no gaps show between rows where art pixels are not whole ones; no margin, as
/// panels have theirs.
QByteArray symbolicSvg()
{
    QByteArray path;
    for (int row = margin; row < maskSide - margin; ++row) {
        const std::string_view ink = bowlMask().at(static_cast<std::size_t>(row));
        for (std::size_t begin = ink.find('R'); begin != std::string_view::npos;) {
            const std::size_t end = std::min(ink.find_first_not_of('R', begin), ink.size());
            const QByteArray length = QByteArray::number(static_cast<int>(end - begin));
            path += 'M' + QByteArray::number(static_cast<int>(begin) - margin) + ' ' +
                    QByteArray::number(row - margin) + 'h' + length + "v1h-" + length + 'z';
            begin = ink.find('R', end);
        }
    }
    return R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 22 22">)"
           "\n"
           R"(<style id="current-color-scheme" type="text/css">.ColorScheme-Text{color:#2e3436}</style>)"
           "\n"
           R"(<path class="ColorScheme-Text" fill="currentColor" d=")" +
           path + "\"/>\n</svg>\n";
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
    isDone &= write(iconFile(folder, QStringLiteral("scalable"), QStringLiteral(".svg")), tileSvg());
    isDone &=
        write(iconFile(folder, QStringLiteral("symbolic"), QStringLiteral("-symbolic.svg")), symbolicSvg());
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
