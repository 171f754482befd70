// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/plain_window_system.h"

#include "platform/linux/desktops/picture_backend.h"
#include "platform/linux/qt_gl_context.h"

#include <QDBusConnection>

namespace tessel {

std::unique_ptr<GlContext> PlainWindowSystem::makeContext()
{
    return std::make_unique<QtGlContext>();
}

std::unique_ptr<DesktopPictures> PlainWindowSystem::makePictures()
{
    return makeDesktopPictures(QDBusConnection::sessionBus());
}

} // namespace tessel
