// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/oklab.h"
#include "model/palette.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <numbers>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessel {
namespace {

using test::chroma;
using test::distance;
using test::mix;
using test::Oklab;
using test::toOklab;
using testing::ElementsAre;
using testing::Ge;
using testing::Pair;
using testing::UnorderedElementsAre;

using Ramp = std::vector<Oklab>;

Ramp rampOf(const Palette& palette)
{
    Ramp ramp;
    std::ranges::transform(palette.hex, std::back_inserter(ramp), toOklab);
    return ramp;
}

std::vector<std::string_view> namesWhere(const std::function<bool(const Ramp&)>& holds)
{
    std::vector<std::string_view> names;
    for (const Palette& palette : builtInPalettes()) {
        if (holds(rampOf(palette))) {
            names.push_back(palette.name);
        }
    }
    return names;
}

double shareWhere(const std::function<bool(const Ramp&)>& holds)
{
    return static_cast<double>(namesWhere(holds).size()) / static_cast<double>(builtInPalettes().size());
}

bool anyNeighbours(const Ramp& ramp, const std::function<bool(const Oklab&, const Oklab&)>& holds)
{
    return std::ranges::adjacent_find(ramp, holds) != ramp.end();
}

double peakChroma(const Ramp& ramp)
{
    return chroma(*std::ranges::max_element(ramp, {}, chroma));
}

/// Degrees turned from stop to stop, near-greys left out.
double hueTravel(const Ramp& ramp)
{
    double travel = 0;
    const Oklab* last = nullptr;
    for (const Oklab& stop : ramp) {
        if (chroma(stop) < 0.02) {
            continue;
        }
        if (last != nullptr) {
            const double cross = last->a * stop.b - last->b * stop.a;
            const double dot = last->a * stop.a + last->b * stop.b;
            travel += std::abs(std::atan2(cross, dot)) * 180 / std::numbers::pi;
        }
        last = &stop;
    }
    return travel;
}

constexpr std::size_t samplePlaces = 9;

/// The palette as a smooth gradient shows it, whatever its number of stops.
std::array<Oklab, samplePlaces> samples(const Ramp& ramp)
{
    std::array<Oklab, samplePlaces> result;
    for (std::size_t place = 0; place < samplePlaces; ++place) {
        const double along = static_cast<double>(place * (ramp.size() - 1)) / (samplePlaces - 1);
        const std::size_t below = std::min(static_cast<std::size_t>(along), ramp.size() - 2);
        result[place] = mix(ramp[below], ramp[below + 1], along - static_cast<double>(below));
    }
    return result;
}

TEST(PaletteTable, KeepsEveryNameInItsPlace)
{
    // Saved looks hold the index alone, so a renamed or moved palette changes people's wallpapers.
    const std::span<const Palette> table = builtInPalettes();
    ASSERT_EQ(table.size(), 222);
    EXPECT_EQ(table[0].name, "Ember");
    EXPECT_EQ(table[11].name, "Rust");
    EXPECT_EQ(table[22].name, "Verdigris");
    EXPECT_EQ(table[79].name, "Nimbus");
    EXPECT_EQ(table[112].name, "Troms\u00F8");
    EXPECT_EQ(table[149].name, "CGA Sunset");
    EXPECT_EQ(table[174].name, "Wormhole");
    EXPECT_EQ(table[221].name, "Tideline");

    std::uint64_t fingerprint = 0xCBF29CE484222325; // 64-bit FNV-1a over all names, a line each
    for (const Palette& palette : table) {
        for (const char letter : std::string(palette.name) + '\n') {
            fingerprint = (fingerprint ^ static_cast<unsigned char>(letter)) * 0x100000001B3;
        }
    }
    EXPECT_EQ(fingerprint, 0x3DCCFBA77CC4F785);

    std::set<std::string_view> names;
    std::ranges::transform(table, std::inserter(names, names.end()), &Palette::name);
    EXPECT_EQ(names.size(), table.size());
}

TEST(PaletteTable, KeepsGroupsTogether)
{
    std::vector<std::pair<std::string_view, int>> runs;
    for (const Palette& palette : builtInPalettes()) {
        if (runs.empty() || runs.back().first != palette.group) {
            runs.emplace_back(palette.group, 0);
        }
        ++runs.back().second;
    }
    EXPECT_THAT(runs, ElementsAre(Pair("", 12), Pair("Metal", 11), Pair("Silk", 16), Pair("Fold", 12),
                                  Pair("Threads", 15), Pair("Beams", 20), Pair("Exposure", 20),
                                  Pair("Curtain", 7), Pair("Dawn", 11), Pair("Planet", 19), Pair("Halo", 32),
                                  Pair("Orbit", 10), Pair("Tiles", 23), Pair("Ribbon", 14)));
}

TEST(PaletteTable, KeepsTheFixedPalettes)
{
    struct Fixed
    {
        std::size_t index;
        std::string_view name;
        std::vector<Color> hex;
    };
    // clang-format off
    const std::vector<Fixed> fixed{
        {0, "Ember", {0x0B0503, 0x5A0E02, 0xE0440E, 0xFFB347, 0xFFF1C9}},
        {1, "Tide", {0x020816, 0x0B2A5B, 0x1F7AE0, 0x7FD4FF, 0xE9FBFF}},
        {2, "Dusk", {0x0E0B26, 0x3C1E6E, 0xC2417A, 0xFF9E5E, 0xFFE3A3}},
        {3, "Bloom", {0x14020F, 0x6B0F4E, 0xFF4FA3, 0xFFC2DD}},
        {4, "Acid", {0x0A0A0A, 0x1D3B12, 0x7BD41F, 0xE8FF3A}},
        {5, "Mint", {0x03140F, 0x0F4D3A, 0x3FD3A0, 0xD9FFEF}},
        {6, "Chrome", {0x050507, 0x2A2D34, 0x8E96A3, 0xDDE3EA, 0xFFFFFF}},
        {7, "Mono", {0x000000, 0x3A3A3A, 0x9A9A9A, 0xFFFFFF}},
        {8, "Paper", {0x1B1B1F, 0xE9E4D8}},
        {9, "Pocket", {0x0F380F, 0x306230, 0x8BAC0F, 0x9BBC0F}},
        {10, "Cobalt", {0x000A2E, 0x0033CC, 0xF2F2F2}},
        {11, "Rust", {0x120904, 0x7A2E0E, 0xC9A27E, 0xF3E9DC}},
        {12, "Gold", {0x0C0802, 0x3D2A0C, 0x9C6B1E, 0xE8C26A, 0xFFF4D6}},
        {23, "Charcoal Satin", {0x050506, 0x5C6270, 0xA9B0BD, 0xFFFFFF}},
        {39, "Nightfold", {0x040309, 0x120D33, 0x3D2AA6, 0xA77BFF, 0xF1DCFF}},
        {51, "Glasswork", {0xEEF0F6, 0x9FB2FF, 0xB08CFF, 0x3552FF, 0x1A2A9E}},
        {66, "Nova", {0x050102, 0x3A0A1A, 0xFF6A3D, 0xFFD07A, 0xFFFAF2}},
        {86, "Spectral Sea", {0x02060C, 0x132A5A, 0x0A5F94, 0x33B5B5, 0xC8F5EC}},
        {106, "Ice Curtain", {0x02040C, 0x0B2550, 0x2E6E92, 0x6FB5C9, 0xDDF6FF}},
        {113, "Hearth", {0x050303, 0x2A0C07, 0x9C2F14, 0xFF8A3A, 0xFFF0DC}},
        {124, "Lunar", {0x05060A, 0x141B2B, 0x5A6B8C, 0xC9D3E6, 0xFFFFFF}},
        {143, "Corona", {0x050204, 0x2A1430, 0xC9543A, 0xFFC47B, 0xFFF6E6}},
        {175, "Ember Orbit", {0x0A0302, 0x5A0D22, 0xD6472E, 0xFE9E50, 0xFFE9CC}},
        {185, "Greenhouse", {0x010605, 0x0E9A7E, 0x55E6BD, 0xDCFFF4}},
        {208, "Coldlight", {0x020406, 0x0B3A52, 0x1AA3C8, 0xA7ECFF, 0xF2FDFF}},
    };
    // clang-format on
    for (const auto& [index, name, hex] : fixed) {
        const Palette& palette = builtInPalettes()[index];
        EXPECT_EQ(palette.name, name);
        EXPECT_THAT(palette.hex, testing::ElementsAreArray(hex)) << name;
    }
}

TEST(PaletteTable, HasOpaqueStopsInTheAgreedNumbers)
{
    std::map<std::size_t, int> palettesByStops;
    for (const Palette& palette : builtInPalettes()) {
        ++palettesByStops[palette.hex.size()];
        EXPECT_TRUE(std::ranges::all_of(palette.hex, [](Color stop) { return stop <= 0xFFFFFF; }))
            << palette.name;
    }
    EXPECT_THAT(palettesByStops, ElementsAre(Pair(2, 1), Pair(3, 6), Pair(4, 63), Pair(5, 152)));
}

TEST(PaletteTable, HasNoTwins)
{
    // 0.05 is some two and a half just noticeable differences, kept up on average over the whole gradient:
    // side by side, pairs of fixed palettes at 0.03 still pass for one another, pairs at 0.05 do not.
    constexpr double clearlyVisible = 0.05;
    const std::span<const Palette> table = builtInPalettes();
    std::vector<std::array<Oklab, samplePlaces>> sampled;
    for (const Palette& palette : table) {
        sampled.push_back(samples(rampOf(palette)));
    }
    std::vector<std::string> twins;
    for (std::size_t one = 0; one < table.size(); ++one) {
        for (std::size_t other = one + 1; other < table.size(); ++other) {
            double sum = 0;
            for (std::size_t place = 0; place < samplePlaces; ++place) {
                sum += distance(sampled[one][place], sampled[other][place]);
            }
            if (sum / samplePlaces < clearlyVisible) {
                twins.push_back(std::string(table[one].name) + " and " + std::string(table[other].name));
            }
        }
    }
    // Only fixed palettes may be this close.
    EXPECT_THAT(twins, UnorderedElementsAre("Ember and Ember Orbit", "Spectral Sea and Ice Curtain",
                                            "Nova and Corona"));
}

TEST(PaletteTable, StartsDarkEnoughForWhiteIconLabels)
{
    const auto light = [](const Ramp& ramp) { return ramp.front().lightness >= 0.25; };
    EXPECT_THAT(namesWhere(light),
                UnorderedElementsAre("Pocket", "Paper Crease", "Glasswork", "Prism Paper"));
}

TEST(PaletteTable, EndsLight)
{
    const auto dim = [](const Ramp& ramp) { return ramp.back().lightness <= 0.8; };
    EXPECT_THAT(namesWhere(dim), UnorderedElementsAre("Pocket", "Glasswork", "Prism Paper"));
}

TEST(PaletteTable, RisesInLightness)
{
    const auto falls = [](const Ramp& ramp) {
        return anyNeighbours(
            ramp, [](const Oklab& dark, const Oklab& light) { return light.lightness <= dark.lightness; });
    };
    // Coloured glass and coloured inks on a white ground.
    EXPECT_THAT(namesWhere(falls), UnorderedElementsAre("Glasswork", "Prism Paper"));
}

TEST(PaletteTable, DoesNotGreyOutBetweenNeighbours)
{
    const auto greys = [](const Ramp& ramp) {
        return anyNeighbours(ramp, [](const Oklab& one, const Oklab& other) {
            constexpr double nearGrey = 0.05; // below it a stop is a tint of grey, and meant as one
            const double lesser = std::min(chroma(one), chroma(other));
            return lesser >= nearGrey && chroma(mix(one, other, 0.5)) < 0.6 * lesser;
        });
    };
    EXPECT_THAT(namesWhere(greys), testing::IsEmpty());
}

TEST(PaletteTable, IsMostColourfulInTheMiddle)
{
    const auto inTheMiddle = [](const Ramp& ramp) {
        const double peak = peakChroma(ramp);
        return chroma(ramp.front()) < peak && chroma(ramp.back()) < peak;
    };
    EXPECT_THAT(shareWhere(inTheMiddle), Ge(0.9));
}

TEST(PaletteTable, TravelsThroughHues)
{
    const auto singleHued = [](const Ramp& ramp) { return peakChroma(ramp) > 0.06 && hueTravel(ramp) < 25; };
    EXPECT_THAT(shareWhere(singleHued), testing::Le(0.15));
}

} // namespace
} // namespace tessel
