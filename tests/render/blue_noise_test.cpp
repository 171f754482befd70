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

bool hasDot(const Ranks& ranks, double share, int x, int y)
{
    const auto place = static_cast<std::size_t>(y) * side + static_cast<std::size_t>(x);
    return ranks[place] < share * blueNoiseCount;
}

using Line = std::array<std::complex<double>, side>;

Line fourier(const Line& line)
{
    Line result;
    for (int k = 0; k < side; ++k) {
        for (int i = 0; i < side; ++i)
            result[static_cast<std::size_t>(k)] +=
                line[static_cast<std::size_t>(i)] * std::polar(1.0, -2 * std::numbers::pi * k * i / side);
    }
    return result;
}

/// Mean power, over all directions, of the waves at least three times as long as the mean distance of the
/// dots (or of the gaps, whichever are rarer), as a share of the mean power of all waves: 1 for white noise.
double lowPower(const Ranks& ranks, double share)
{
    std::vector<Line> rows(side);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] =
                hasDot(ranks, share, x, y) ? 1 : 0;
        rows[static_cast<std::size_t>(y)] = fourier(rows[static_cast<std::size_t>(y)]);
    }
    const double highest = side * std::sqrt(std::min(share, 1 - share)) / 3;
    std::array<double, 2> sums{};
    std::array<int, 2> counts{};
    for (int u = 0; u < side; ++u) {
        Line column;
        std::transform(rows.begin(), rows.end(), column.begin(),
                       [u](const Line& row) { return row[static_cast<std::size_t>(u)]; });
        column = fourier(column);
        for (int v = u == 0 ? 1 : 0; v < side; ++v) {
            const double frequency = std::hypot(std::min(u, side - u), std::min(v, side - v));
            const double power = std::norm(column[static_cast<std::size_t>(v)]);
            for (const std::size_t kind : {std::size_t{0}, std::size_t{1}}) {
                if (kind == 0 || frequency <= highest) {
                    sums[kind] += power;
                    ++counts[kind];
                }
            }
        }
    }
    return sums[1] / counts[1] / (sums[0] / counts[0]);
}

/// The shortest way between two dots, across the borders too.
double leastDistance(const Ranks& ranks, double share)
{
    double least = side;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            if (!hasDot(ranks, share, x, y))
                continue;
            for (int dy = 0; dy <= side / 2; ++dy) {
                for (int dx = 1 - side / 2; dx <= side / 2; ++dx) {
                    if ((dx != 0 || dy != 0) && hasDot(ranks, share, (x + dx + side) % side, (y + dy) % side))
                        least = std::min(least, std::hypot(dx, dy));
                }
            }
        }
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
