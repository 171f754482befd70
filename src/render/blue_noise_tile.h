// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessel {

inline constexpr int blueNoiseSide = 64;
inline constexpr std::size_t blueNoiseCount = 4096; ///< the places of the square

/// A square of thresholds without visible pattern, row by row, that joins itself at its borders: each of the
/// ranks 0 to 4095 once, so placed that the places below any rank are spread evenly.
[[nodiscard]] const std::array<std::uint16_t, blueNoiseCount>& blueNoiseRanks();

} // namespace tessel
