// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/smooth_colors.h"

#include "base/bayer.h"

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

using Rgb = std::array<float, 3>;

/// Between the two nearest colours of the ramp.
Rgb colorAt(std::span<const float> ramp, float tone)
{
    const std::size_t last = ramp.size() / 3 - 1;
    const float place = tone * static_cast<float>(last);
    const auto lower = std::min(static_cast<std::size_t>(place), last - 1);
    const float part = place - static_cast<float>(lower);
    Rgb color{};
    for (std::size_t channel = 0; channel < color.size(); ++channel)
        color.at(channel) = std::lerp(ramp[3 * lower + channel], ramp[3 * lower + 3 + channel], part);
    return color;
}

/// The ramp is gone through and back again.
float shifted(float tone, float offset)
{
    const float place = tone + offset;
    return 1.0F - std::abs(1.0F - (place - 2.0F * std::floor(place / 2.0F)));
}

/// The threshold of the shaders' ordered noise, less a half.
float noiseAt(unsigned x, unsigned y)
{
    return static_cast<float>(bayerThreshold(x, y, 2)) - 0.5F;
}

std::uint32_t packed(const Rgb& color, float noise)
{
    std::uint32_t pixel = 0xFF;
    for (const float channel : color)
        pixel = pixel << 8U |
                static_cast<std::uint32_t>(std::lround(std::clamp(channel * 255.0F + noise, 0.0F, 255.0F)));
    return pixel;
}

/// How many levels the channel that changes most goes through.
float levels(const Rgb& from, const Rgb& to)
{
    float most = 0.0F;
    for (std::size_t channel = 0; channel < from.size(); ++channel)
        most = std::max(most, std::abs(to.at(channel) - from.at(channel)));
    return 255.0F * most;
}

} // namespace

void SmoothColors::set(std::span<const float> ramp, float offset)
{
    std::array<Rgb, length> colors{};
    float passed = 0.0F;
    for (std::size_t i = 0; i < length; ++i) {
        const float tone = static_cast<float>(i) / static_cast<float>(length - 1);
        colors.at(i) = colorAt(ramp, shifted(tone, offset));
        if (i > 0)
            passed += levels(colors.at(i - 1), colors.at(i));
    }
    m_tonesPerLevel = static_cast<float>(highestTone) / std::max(passed, 1.0F);
    m_tables.resize(length * noiseSide * noiseSide);
    auto out = m_tables.begin();
    for (unsigned y = 0; y < noiseSide; ++y)
        for (unsigned x = 0; x < noiseSide; ++x)
            out = std::ranges::transform(colors, out, [noise = noiseAt(x, y)](const Rgb& color) {
                      return packed(color, noise);
                  }).out;
}

} // namespace tessel
