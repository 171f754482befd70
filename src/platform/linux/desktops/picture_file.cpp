// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/picture_file.h"

#include "base/picture_limit.h"

#include <QImageReader>

namespace tessel {

QImage readPicture(const DesktopPicture& picture, QString& problem)
{
    limitPictures();
    QImageReader reader(picture.file);
    const QImage image = reader.read();
    if (image.isNull())
        problem =
            DesktopPictures::tr("the file %1 cannot be read: %2.").arg(picture.file, reader.errorString());
    const QSize size = picture.screen.pixels().size();
    return image.size() == size || image.isNull()
               ? image.convertToFormat(QImage::Format_RGB32)
               : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                     .convertToFormat(QImage::Format_RGB32);
}

} // namespace tessel
