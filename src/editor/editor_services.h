// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

namespace tessel {

/// What the editor has others do for it.
struct EditorServices
{
    /// Lets the user choose a picture file; `chosen` is not called if none is.
    std::function<void(std::function<void(const QString& file)> chosen)> chooseImage{};

    /// Lets the user choose where to save a PNG file; `chosen` is not called if nowhere.
    /// \param name proposed
    std::function<void(const QString& name, std::function<void(const QString& file)> chosen)> choosePngFile{};

    bool playsWallpapers = true; ///< or the desktop only shows stills
    QString photoFolder{};       ///< where copies of photos are kept
};

} // namespace tessel
