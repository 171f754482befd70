// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_pictures.h"

#include "platform/linux/desktops/picture_file.h"
#include "platform/linux/wayland/wayland_backdrops.h"

namespace tessel {

QStringList WaylandPictures::apply(const std::vector<DesktopPicture>& pictures, Which /*which*/)
{
    QStringList failures;
    for (const DesktopPicture& picture : pictures) {
        QString problem;
        const QImage image = readPicture(picture, problem);
        if (image.isNull())
            failures << refusal(picture, problem);
        else
            QMetaObject::invokeMethod(
                &m_backdrops,
                [&backdrops = m_backdrops, picture, image] {
                    backdrops.of(picture.screen.name)->setPicture(image, picture.file);
                },
                Qt::QueuedConnection);
    }
    return failures;
}

} // namespace tessel
