// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/photo.h"

#include "base/picture_limit.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace tessel {

namespace {

struct PhotoText
{
    Q_DECLARE_TR_FUNCTIONS(PhotoText)
};

void requireFile(const QString& name)
{
    const QFileInfo info(name);
    if (!info.exists())
        //: why a photo cannot be used; inside a sentence
        throw PhotoError(PhotoText::tr("there is no such file").toStdString());
    if (info.isDir())
        throw PhotoError(PhotoText::tr("it is a folder, not a picture").toStdString());
    if (!info.isFile())
        throw PhotoError(PhotoText::tr("it is not an ordinary file").toStdString());
    if (!info.isReadable())
        throw PhotoError(PhotoText::tr("it may not be read").toStdString());
}

using Histogram = std::array<std::size_t, 256>;

Histogram histogramOf(const QImage& photo)
{
    Histogram counts{};
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x)
            ++counts.at(photo.constScanLine(y)[x]);
    return counts;
}

/// The grey below which `share` of the pixels are.
int quantile(const Histogram& counts, double share)
{
    const auto all = static_cast<double>(std::accumulate(counts.begin(), counts.end(), std::size_t{0}));
    std::size_t below = 0;
    int grey = 0;
    while (grey < 255 &&
           static_cast<double>(below + counts.at(static_cast<std::size_t>(grey))) <= share * all)
        below += counts.at(static_cast<std::size_t>(grey++));
    return grey;
}

/// Spreads a flat photo's greys over the range, so that every ink has something to draw; one that has no
/// detail to spread stays flat rather than becoming noise.
void stretchContrast(QImage& photo)
{
    constexpr double darkest = 5;
    constexpr double lightest = 250;
    constexpr double mostGain = 4;
    const Histogram counts = histogramOf(photo);
    const int low = quantile(counts, 0.005);
    const int high = quantile(counts, 0.995);
    const double gain = std::min((lightest - darkest) / std::max(high - low, 1), mostGain);
    if (high == low || gain <= 1.0)
        return;
    const double half = 0.5 * gain * (high - low);
    const double middle = std::clamp(0.5 * (low + high), darkest + half, lightest - half);
    std::array<uchar, 256> greys{};
    for (std::size_t i = 0; i < greys.size(); ++i) {
        const double grey = middle + gain * (static_cast<double>(i) - 0.5 * (low + high));
        greys.at(i) = static_cast<uchar>(std::lround(std::clamp(grey, 0.0, 255.0)));
    }
    for (int y = 0; y < photo.height(); ++y) {
        uchar* row = photo.scanLine(y);
        std::transform(row, row + photo.width(), row, [&](uchar grey) { return greys.at(grey); });
    }
}

QSize fitted(QSize size, int longestSide)
{
    if (std::max(size.width(), size.height()) <= longestSide)
        return size;
    return size.scaled(longestSide, longestSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

} // namespace

int longestPhotoSide(int longestScreen)
{
    return std::max(longestScreen > 0 ? longestScreen : 3024, 2048);
}

QImage readPicture(const std::string& path, int longestSide)
{
    const QString name = QString::fromStdString(path);
    requireFile(name);
    limitPictures();
    QImageReader reader(name);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize full = reader.size();
    if (full.isValid() && fitted(full, longestSide) != full)
        reader.setScaledSize(fitted(full, longestSide));
    const QImage image = reader.read();
    if (image.isNull())
        throw PhotoError(reader.errorString().toStdString());
    // Formats that do not tell their size beforehand have been read whole.
    return image.scaled(fitted(image.size(), longestSide), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage readPhoto(const std::string& path, int longestSide)
{
    QImage photo = readPicture(path, longestSide).convertToFormat(QImage::Format_Grayscale8);
    stretchContrast(photo);
    return photo;
}

} // namespace tessel
