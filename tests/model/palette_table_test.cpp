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
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {
namespace {

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
    for (const Palette& palette : builtInPalettes())
        if (holds(rampOf(palette)))
            names.push_back(palette.name);
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
        if (chroma(stop) < 0.02)
            continue;
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

/// 64-bit FNV-1a.
std::uint64_t fingerprint(std::string_view text)
{
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char letter : text)
        hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001B3;
    return hash;
}

TEST(PaletteTable, KeepsEveryNameInItsPlace)
{
    // Saved looks hold the index alone, so a renamed or moved palette changes people's wallpapers.
    std::string names;
    for (const Palette& palette : builtInPalettes())
        names += std::string(palette.name) + '\n';
    EXPECT_EQ(fingerprint(names), 0x3DCCFBA77CC4F785) << names;
}

TEST(PaletteTable, KeepsTheFixedPalettes)
{
    std::string stops;
    const std::vector<std::size_t> fixed{0,  1,  2,  3,  4,  5,   6,   7,   8,   9,   10,  11, 12,
                                         23, 39, 51, 66, 86, 106, 113, 124, 143, 175, 185, 208};
    for (const std::size_t index : fixed) {
        for (const Color stop : builtInPalettes()[index].hex)
            stops += hexText(stop) + ' ';
        stops += '\n';
        EXPECT_TRUE(isFixed(static_cast<int>(index))) << index;
    }
    EXPECT_EQ(fingerprint(stops), 0x864AE54C828A5233) << stops;
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
    for (const Palette& palette : table)
        sampled.push_back(samples(rampOf(palette)));
    std::vector<std::string> twins;
    for (std::size_t one = 0; one < table.size(); ++one) {
        for (std::size_t other = one + 1; other < table.size(); ++other) {
            double sum = 0;
            for (std::size_t place = 0; place < samplePlaces; ++place)
                sum += distance(sampled[one][place], sampled[other][place]);
            if (sum / samplePlaces < clearlyVisible)
                twins.push_back(std::string(table[one].name) + " and " + std::string(table[other].name));
        }
    }
    // Only fixed palettes may be this close.
    EXPECT_THAT(twins, UnorderedElementsAre("Ember and Ember Orbit", "Spectral Sea and Ice Curtain",
                                            "Nova and Corona"));
}

TEST(PaletteTable, RisesInLightness)
{
    // So dark at its start that white labels of icons can be read.
    const auto bright = [](const Ramp& ramp) { return ramp.front().lightness >= 0.25; };
    EXPECT_THAT(namesWhere(bright),
                UnorderedElementsAre("Pocket", "Paper Crease", "Glasswork", "Prism Paper"));
    const auto dim = [](const Ramp& ramp) { return ramp.back().lightness <= 0.8; };
    EXPECT_THAT(namesWhere(dim), UnorderedElementsAre("Pocket", "Glasswork", "Prism Paper"));
    const auto falls = [](const Ramp& ramp) {
        return anyNeighbours(
            ramp, [](const Oklab& dark, const Oklab& light) { return light.lightness <= dark.lightness; });
    };
    // Coloured glass and coloured inks on a white ground.
    EXPECT_THAT(namesWhere(falls), UnorderedElementsAre("Glasswork", "Prism Paper"));
}

TEST(PaletteTable, KeepsNeighbouringStopsApart)
{
    // Closer than this they pass for one ink, and a step of the picture is lost.
    std::vector<std::string_view> alike;
    for (const Palette& palette : builtInPalettes())
        if (nearestStops(palette) < stopFloor)
            alike.push_back(palette.name);
    // Only fixed palettes may be.
    EXPECT_THAT(alike, UnorderedElementsAre("Pocket", "Chrome", "Glasswork", "Nightfold", "Coldlight",
                                            "Lunar", "Hearth"));
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
