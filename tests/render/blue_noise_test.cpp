// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/blue_noise_tile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <vector>

namespace tessel {
namespace {

constexpr int side = blueNoiseSide;
using Ranks = std::array<std::uint16_t, blueNoiseCount>;

Ranks whiteNoise()
{
    Ranks ranks = blueNoiseRanks();
    std::shuffle(ranks.begin(), ranks.end(), std::mt19937(4));
    return ranks;
}

std::vector<std::array<int, 2>> dotsOf(const Ranks& ranks, double share)
{
    std::vector<std::array<int, 2>> dots;
    for (int place = 0; place < side * side; ++place)
        if (ranks[static_cast<std::size_t>(place)] < share * blueNoiseCount)
            dots.push_back({place % side, place / side});
    return dots;
}

/// Mean power, over all directions, of the waves at least three times as long as the mean distance of the
/// dots (or of the gaps, whichever are rarer), as a share of the mean power of all waves: 1 for white noise.
double lowPower(const Ranks& ranks, double share)
{
    const auto dots = dotsOf(ranks, share);
    const double highest = side * std::sqrt(std::min(share, 1 - share)) / 3;
    double sum = 0;
    int waves = 0;
    for (int u = static_cast<int>(-highest); u <= highest; ++u) {
        for (int v = u > 0 ? 0 : 1; std::hypot(u, v) <= highest; ++v) {
            std::complex<double> wave;
            for (const auto& [x, y] : dots)
                wave += std::polar(1.0, 2 * std::numbers::pi * (u * x + v * y) / side);
            sum += std::norm(wave);
            ++waves;
        }
    }
    // The power of all waves together is known from the number of dots (Parseval).
    const auto count = static_cast<double>(dots.size());
    return sum / waves / (count * (blueNoiseCount - count) / (blueNoiseCount - 1));
}

/// The shortest way between two dots, across the borders too.
double leastDistance(const Ranks& ranks, double share)
{
    const auto way = [](int from, int to) {
        return std::min((from - to + side) % side, (to - from + side) % side);
    };
    const auto dots = dotsOf(ranks, share);
    double least = side;
    for (std::size_t one = 0; one < dots.size(); ++one) {
        for (std::size_t other = 0; other < one; ++other)
            least = std::min(
                least, std::hypot(way(dots[one][0], dots[other][0]), way(dots[one][1], dots[other][1])));
    }
    return least;
}

TEST(BlueNoise, HoldsEveryRankOnce)
{
    Ranks sorted = blueNoiseRanks();
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t i = 0; i < sorted.size(); ++i)
        ASSERT_EQ(sorted[i], i);
}

TEST(BlueNoise, HasNoClumpsAtAnyTone)
{
    const Ranks white = whiteNoise();
    for (const double share : {0.1, 0.25, 0.5, 0.75, 0.9}) {
        EXPECT_LT(lowPower(blueNoiseRanks(), share), 0.1) << share;
        EXPECT_GT(lowPower(white, share), 0.7) << share << ": this would not notice white noise";
    }
}

TEST(BlueNoise, KeepsDotsApart)
{
    const Ranks white = whiteNoise();
    EXPECT_GE(leastDistance(blueNoiseRanks(), 0.1), 2);
    EXPECT_LT(leastDistance(white, 0.1), 2) << "this would not notice white noise";
    EXPECT_GE(leastDistance(blueNoiseRanks(), 0.01), 6);
    EXPECT_GE(leastDistance(blueNoiseRanks(), 0.002), 14)
        << "dots too rare to feel each other are not spread";
}

} // namespace
} // namespace tessel
