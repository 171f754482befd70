// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/file_error.h"
#include "render/picture.h"
#include "render/png_encoder.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>

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

/// Fills its argument as far as there are more bytes, and says how many there were.
using ByteSource = std::function<std::size_t(std::span<std::uint8_t>)>;

/// The same for a PNG file that comes from somewhere else. It is never held as a whole.
/// \param name what errors call it
[[nodiscard]] std::optional<std::string> readLookText(ByteSource source, const std::filesystem::path& name);

} // namespace tessel
