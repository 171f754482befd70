// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

#include <stdexcept>
#include <string>

namespace tessel {

/// A photo that cannot be read. The message says why, not which.
class PhotoError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The longest side, in pixels, that a photo keeps: that of the longest screen, 3024 where there is none
/// (given as 0), and never less than 2048.
[[nodiscard]] int longestPhotoSide(int longestScreen = 0);

/// A picture in any format Qt reads, upright by its EXIF orientation and scaled down while it is read so that
/// no side exceeds `longestSide`.
/// \param path UTF-8
/// \throws PhotoError
[[nodiscard]] QImage readPicture(const std::string& path, int longestSide);

/// The luminance of a photo, 8-bit grey, spread over the range where it is flat; otherwise the same.
[[nodiscard]] QImage readPhoto(const std::string& path, int longestSide);

} // namespace tessel
