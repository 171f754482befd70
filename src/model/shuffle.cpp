// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/shuffle.h"

#include "model/palette.h"
#include "model/sliders.h"

#include <limits>
#include <random>
#include <utility>

namespace tessel {

namespace {

/// bayer8 stands twice so that it comes up twice as often.
constexpr std::array<Dither, 11> ditherCandidates{
    Dither::posterize, Dither::bayer4,  Dither::bayer8, Dither::bayer8, Dither::noise, Dither::halftone,
    Dither::lines,     Dither::diamond, Dither::smooth, Dither::ascii,  Dither::benday};

constexpr std::array<float, 6> pixelSizes{4.0F, 6.0F, 8.0F, 10.0F, 12.0F, 16.0F};

constexpr std::array<Pattern, patternCount - 1> buildShufflePatterns()
{
    std::array<Pattern, patternCount - 1> patterns{};
    std::size_t count = 0;
    for (std::size_t raw = 0; raw < patternCount; ++raw) {
        const auto pattern = static_cast<Pattern>(raw);
        if (pattern != Pattern::image)
            patterns[count++] = pattern;
    }
    return patterns;
}

/// Uniform over 0..n-1. The standard's own distribution is not used because its result differs between
/// libraries, while the engine's is fixed.
std::uint32_t below(std::uint32_t n, std::mt19937_64& engine)
{
    // The 2^64 values of the engine do not divide evenly by n: the first (2^64 mod n) are drawn again.
    const std::uint64_t uneven = (std::numeric_limits<std::uint64_t>::max() - n + 1) % n;
    std::uint64_t value = engine();
    while (value < uneven)
        value = engine();
    return static_cast<std::uint32_t>(value % n);
}

RandomSource sourceFrom(const std::mt19937_64& engine)
{
    return [state = engine](std::uint32_t n) mutable { return below(n, state); };
}

template<typename Value, std::size_t count>
Value pick(const std::array<Value, count>& values, const RandomSource& random)
{
    return values.at(random(static_cast<std::uint32_t>(count)));
}

/// Uniform over the closed interval. In double the product and the quotient are exact, so neither end is
/// ever overshot and the last step gives exactly `high`.
float uniform(float low, float high, const RandomSource& random)
{
    constexpr std::uint32_t steps = 1U << 24U;
    const double step = random(steps + 1);
    const double width = static_cast<double>(high) - static_cast<double>(low);
    return static_cast<float>(static_cast<double>(low) + width * step / steps);
}

} // namespace

RandomSource seededSource(std::uint64_t seed)
{
    return sourceFrom(std::mt19937_64(seed));
}

RandomSource systemSource()
{
    std::random_device device;
    std::seed_seq words{device(), device(), device(), device(), device(), device(), device(), device()};
    return sourceFrom(std::mt19937_64(words));
}

const std::array<Pattern, patternCount - 1>& shufflePatterns()
{
    static constexpr auto patterns = buildShufflePatterns();
    return patterns;
}

Look randomLook(const RandomSource& random, std::optional<std::string> imagePath)
{
    const std::span<const Palette> palettes = builtInPalettes();

    // The order of the draws is fixed: the same source must give the same look in every version.
    Look look;
    look.pattern = pick(shufflePatterns(), random);
    look.palette = random(static_cast<std::uint32_t>(palettes.size()));
    look.dither = pick(ditherCandidates, random);
    look.pixel = pick(pixelSizes, random);
    look.scale = uniform(0.7F, 1.6F, random);
    look.warp = uniform(0.4F, 1.6F, random);
    look.speed = uniform(0.15F, 0.5F, random);
    look.contrast = uniform(1.0F, 1.4F, random);
    look.vignette = uniform(0.1F, 0.35F, random);
    look.seed = static_cast<float>(random(static_cast<std::uint32_t>(sliderOf(&Look::seed).upper) + 1));
    look.invert = random(6) == 0;

    // One tone level for each stop, so that every colour of the palette shows.
    look.levels = static_cast<float>(resolveStops(look).count);
    look.offset = 0.0F;
    look.grain = 0.04F;
    look.imagePath = std::move(imagePath);
    return look;
}

} // namespace tessel
