// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/picture.h"

#include <cstddef>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tessel {

/// The keyword of the PNG text that holds a picture's look.
inline constexpr char lookKeyword[] = "Look";

/// The most bytes of look text that a PNG may carry.
inline constexpr std::size_t maxLookText = std::size_t{16} << 20;

/// The bytes of a PNG file that holds the picture without loss, as sRGB: indexed at the smallest bit depth
/// where it has at most 256 colours, 24-bit otherwise. `lookJson` (UTF-8) goes with it as international text
/// under lookKeyword. The same picture gives the same bytes, whatever the number of threads.
/// \throws std::invalid_argument for an empty picture, std::length_error for one or a text too large
[[nodiscard]] std::vector<std::byte> encodePng(const Picture& picture,
                                               const std::optional<std::string>& lookJson,
                                               unsigned threads = std::thread::hardware_concurrency());

} // namespace tessel
