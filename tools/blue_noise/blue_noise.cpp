// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Prints src/render/blue_noise_tile.cpp: a tile of blue-noise thresholds, made by the void-and-cluster method
// of R. Ulichney, "The void-and-cluster method for dither array generation", Proc. SPIE 1913 (1993). It
// prints the same on every machine.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numeric>
#include <random>
#include <string>

namespace {

constexpr int side = 64;
constexpr int places = side * side;
/// The share of dots to begin with, and the reach of a dot in pixels, that the paper recommends.
constexpr int firstDots = places / 10;
constexpr double reach = 1.5;

template<class Value>
using Tile = std::array<Value, places>;

/// How strongly a dot is felt at each place, the dot being in the corner of an endless tiling. Whole numbers,
/// so that dots can be put and taken in any order without a trace. The last few dots are too far apart to
/// feel each other; a wider, far weaker influence keeps even them apart.
Tile<std::int64_t> influence()
{
    Tile<std::int64_t> values{};
    for (int place = 0; place < places; ++place) {
        const double x = std::min(place % side, side - place % side);
        const double y = std::min(place / side, side - place / side);
        const auto bell = [&](double deviation) {
            return std::exp(-(x * x + y * y) / (2 * deviation * deviation));
        };
        const double felt = std::ldexp(bell(reach), 50) + std::ldexp(bell(4 * reach), 30);
        values[static_cast<std::size_t>(place)] = std::llround(felt);
    }
    return values;
}

/// Dots on the tile, and how strongly all of them together are felt everywhere.
class Pattern
{
public:
    [[nodiscard]] bool has(int place) const { return m_dots[index(place)]; }

    void put(int place) { change(place, true); }
    void take(int place) { change(place, false); }

    /// The place without a dot that is farthest from dots.
    [[nodiscard]] int largestVoid() const { return best(false, -1); }

    /// The dot with the most dots around it.
    [[nodiscard]] int tightestCluster() const { return best(true, 1); }

private:
    static std::size_t index(int place) { return static_cast<std::size_t>(place); }

    void change(int place, bool dot)
    {
        static const Tile<std::int64_t> felt = influence();
        m_dots[index(place)] = dot;
        for (int other = 0; other < places; ++other) {
            const int x = (other % side - place % side + side) % side;
            const int y = (other / side - place / side + side) % side;
            m_sums[index(other)] += dot ? felt[index(y * side + x)] : -felt[index(y * side + x)];
        }
    }

    [[nodiscard]] int best(bool amongDots, std::int64_t sign) const
    {
        int found = -1;
        for (int place = 0; place < places; ++place)
            if (has(place) == amongDots &&
                (found < 0 || sign * m_sums[index(place)] > sign * m_sums[index(found)]))
                found = place;
        return found;
    }

    Tile<bool> m_dots{};
    Tile<std::int64_t> m_sums{};
};

/// Random dots, moved from clusters into voids until none would move any more.
Pattern firstPattern()
{
    Tile<int> order{};
    std::iota(order.begin(), order.end(), 0);
    std::mt19937 random(1993);
    Pattern pattern;
    for (std::size_t i = 0; i < firstDots; ++i) {
        std::swap(order[i], order[i + random() % (places - i)]);
        pattern.put(order[i]);
    }
    while (true) {
        const int dot = pattern.tightestCluster();
        pattern.take(dot);
        const int place = pattern.largestVoid();
        pattern.put(place);
        if (place == dot)
            return pattern;
    }
}

Tile<int> ranks()
{
    const Pattern first = firstPattern();
    Tile<int> result{};
    Pattern shrinking = first;
    for (int rank = firstDots - 1; rank >= 0; --rank) {
        const int dot = shrinking.tightestCluster();
        shrinking.take(dot);
        result[static_cast<std::size_t>(dot)] = rank;
    }
    // Beyond one half the paper looks for the tightest cluster of places without a dot: with sums that all
    // places share evenly, that is the largest void still.
    Pattern growing = first;
    for (int rank = firstDots; rank < places; ++rank) {
        const int place = growing.largestVoid();
        growing.put(place);
        result[static_cast<std::size_t>(place)] = rank;
    }
    return result;
}

} // namespace

int main()
{
    std::string text = R"(// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Printed by tools/blue_noise; not to be edited.

#include "render/blue_noise_tile.h"

namespace tessel {

const std::array<std::uint16_t, blueNoiseCount>& blueNoiseRanks()
{
    // clang-format off
    static constexpr std::array<std::uint16_t, blueNoiseCount> ranks{)";
    int place = 0;
    for (const int rank : ranks())
        text += (place++ % 16 == 0 ? "\n        " : " ") + std::to_string(rank) + ",";
    text += R"(
    };
    // clang-format on
    return ranks;
}

} // namespace tessel
)";
    std::fputs(text.c_str(), stdout);
    return 0;
}
