// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "shaders/shaders.h"

#include <cmath>

namespace tessel {

/// The values of a slider that are told apart when a look is drawn. They reach farther than the sliders do,
/// as far as every pattern still shows something; a look that lies outside is drawn as the nearest one
/// inside.
struct Limits
{
    float lower;
    float upper;

    /// The value to draw; no number counts as the lower limit, and -0 as 0.
    [[nodiscard]] float apply(float value) const { return std::fmin(std::fmax(value, lower), upper) + 0.0F; }
};

namespace limits {
inline constexpr Limits pixel{0.0F, 126.0F}; ///< a twelfth of the screen's long side
inline constexpr Limits levels{2.0F, shaders::maxLevels};
inline constexpr Limits scale{0.2F, 4.0F};
inline constexpr Limits warp{0.0F, 4.0F};
inline constexpr Limits contrast{0.5F, 4.0F};
inline constexpr Limits grain{0.0F, 1.0F};
inline constexpr Limits vignette{0.0F, 1.0F};
} // namespace limits

/// The palette's ramp is gone through and back again: a shift by two changes nothing.
[[nodiscard]] inline float drawnOffset(float offset)
{
    return std::fmod(offset, 2.0F) + 0.0F;
}

} // namespace tessel
