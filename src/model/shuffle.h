// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tessel {

/// Gives a uniform integer in 0..n-1 for n > 0.
using RandomSource = std::function<std::uint32_t(std::uint32_t n)>;

/// A source that repeats itself for the same seed, on every machine. Copies go on independently.
[[nodiscard]] RandomSource seededSource(std::uint64_t seed);

/// A source that the operating system has seeded.
[[nodiscard]] RandomSource systemSource();

/// All patterns but `image`, in raw order: what a shuffle picks from.
[[nodiscard]] const std::array<Pattern, patternCount - 1>& shufflePatterns();

/// A random look that is always presentable, the same for the same draws. `imagePath` is kept so that a photo
/// stays at hand.
[[nodiscard]] Look randomLook(const RandomSource& random, std::optional<std::string> imagePath);

} // namespace tessel
