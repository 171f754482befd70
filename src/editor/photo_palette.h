// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QImage>
#include <QString>

#include <vector>

namespace tessel {

/// Two to five colours that a person would say a picture is made of, darkest first; none for a picture of
/// which nothing can be seen. One that has a single colour gives that and a shade of it.
[[nodiscard]] std::vector<Color> paletteOf(const QImage& picture);

/// The same for a picture file, which is read no larger than needed. May be called from any thread.
/// \throws PhotoError
[[nodiscard]] std::vector<Color> paletteOfFile(const QString& file);

} // namespace tessel
