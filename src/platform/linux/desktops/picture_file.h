// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/desktop_pictures.h"

#include <QImage>

namespace tessel {

/// The picture of a monitor in the monitor's size, Format_RGB32.
/// \param problem why it cannot be read; the picture is empty then
[[nodiscard]] QImage readPicture(const DesktopPicture& picture, QString& problem);

} // namespace tessel
