// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/photo.h"

#include "base/picture_limit.h"

#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

namespace tessel {

namespace {

void requireFile(const QString& name)
{
    const QFileInfo info(name);
    if (!info.exists())
        throw PhotoError("there is no such file");
    if (info.isDir())
        throw PhotoError("it is a folder, not a picture");
    if (!info.isFile())
        throw PhotoError("it is not an ordinary file");
    if (!info.isReadable())
        throw PhotoError("it may not be read");
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
    return readPicture(path, longestSide).convertToFormat(QImage::Format_Grayscale8);
}

} // namespace tessel
