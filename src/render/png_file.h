// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/file_error.h"
#include "render/picture.h"
#include "render/png_encoder.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tessel {

/// Writes the picture as encodePng() encodes it. The file appears whole or not at all: until it is complete
/// on the disk, an older file of that name stays what it was, also after an error. A link is followed to the
/// file it means; a device or pipe is written into.
/// \param isWanted asked once more before anything is written; if not, nothing is
/// \throws FileError, and what encodePng() throws
void writePng(
    const Picture& picture, const std::optional<std::string>& lookJson, const std::filesystem::path& path,
    const std::function<bool()>& isWanted = [] { return true; });

/// The look text in a PNG file; none if it carries none. The whole file is checked, its picture aside.
/// \throws FileError for a file that cannot be read, is no PNG, is cut off or damaged, or holds a text of
/// more than maxLookText bytes
[[nodiscard]] std::optional<std::string> readLookText(const std::filesystem::path& path);

/// The same for a PNG file that has been read already.
/// \param name what errors call it
[[nodiscard]] std::optional<std::string> lookTextIn(std::string_view png, const std::filesystem::path& name);

} // namespace tessel
