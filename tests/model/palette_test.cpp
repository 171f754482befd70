// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/palette.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace tessel {
namespace {

Look lookWithPalette(std::int64_t palette)
{
    Look look;
    look.palette = palette;
    return look;
}

Look lookWithStops(std::vector<Color> stops)
{
    Look look = lookWithPalette(8);
    look.custom = std::move(stops);
    return look;
}

TEST(PaletteGroups, AreTheRunsOfTheTableAfterTheCorePalettes)
{
    const std::vector<std::pair<std::string_view, std::size_t>> families{
        {"Metal", 11},    {"Silk", 16},   {"Fold", 12},  {"Threads", 15}, {"Beams", 20},
        {"Exposure", 20}, {"Curtain", 7}, {"Dawn", 11},  {"Planet", 19},  {"Halo", 32},
        {"Orbit", 10},    {"Tiles", 23},  {"Ribbon", 14}};
    EXPECT_TRUE(std::ranges::all_of(builtInPalettes().first(12), &std::string_view::empty, &Palette::group));
    const std::vector<PaletteGroup>& groups = paletteGroups();
    ASSERT_EQ(groups.size(), families.size());
    int next = 12;
    for (std::size_t place = 0; place < groups.size(); ++place) {
        EXPECT_EQ(groups[place].name, families[place].first);
        EXPECT_EQ(groups[place].indices.size(), families[place].second) << groups[place].name;
        for (const int index : groups[place].indices)
            EXPECT_EQ(index, next++);
    }
    EXPECT_EQ(next, 222);
}

TEST(PaletteName, WrapsPastTheEndOfTheTable)
{
    using Limits = std::numeric_limits<std::int64_t>;
    const std::vector<std::pair<std::int64_t, std::string_view>> names{
        {0, "Ember"},
        {112, "Troms\u00F8"},
        {221, "Tideline"},
        {222, "Ember"},
        {223, "Tide"},
        {std::int64_t{222} * 1'000'000'000'000 + 8, "Paper"},
        {-1, "Ember"},
        {Limits::min(), "Ember"},
        {Limits::max(), "Nimbus"}}; // 2^63 - 1 leaves 79
    for (const auto& [index, name] : names)
        EXPECT_EQ(paletteName(lookWithPalette(index)), name) << index;
}

TEST(DisplayTitle, IsPatternAndPalette)
{
    EXPECT_EQ(displayTitle({}), "Flow Ember");

    Look look = lookWithStops({0x112233});
    look.pattern = Pattern::halo;
    EXPECT_EQ(displayTitle(look), "Halo Custom");

    look.custom->clear(); // drawn with Paper, so called Paper
    EXPECT_EQ(displayTitle(look), "Halo Paper");

    // Titles of patterns and names of palettes may agree.
    look.pattern = Pattern::nova;
    look.palette = 66;
    EXPECT_EQ(displayTitle(look), "Nova Nova");
}

TEST(ResolveStops, TakesFiveAtMostAndRepeatsTheLast)
{
    struct Case
    {
        Look look;
        int count;
        std::array<Color, maxStops> slot;
    };
    for (const auto& [look, count, slot] :
         {Case{lookWithPalette(222), 5, {0x0B0503, 0x5A0E02, 0xE0440E, 0xFFB347, 0xFFF1C9}},
          Case{lookWithPalette(3), 4, {0x14020F, 0x6B0F4E, 0xFF4FA3, 0xFFC2DD, 0xFFC2DD}},
          Case{lookWithStops({}), 2, {0x1B1B1F, 0xE9E4D8, 0xE9E4D8, 0xE9E4D8, 0xE9E4D8}},
          Case{lookWithStops({7, 6, 5, 4, 3, 2, 1}), 5, {7, 6, 5, 4, 3}},
          Case{lookWithStops({9, 1, 5}), 3, {9, 1, 5, 5, 5}}, Case{lookWithStops({8}), 2, {8, 8, 8, 8, 8}},
          Case{lookWithStops({0xFF123456, 0x01000000}), 2, {0x123456, 0, 0, 0, 0}}}) {
        const Stops stops = resolveStops(look);
        EXPECT_EQ(stops.count, count);
        EXPECT_EQ(stops.slot, slot);
    }
}

} // namespace
} // namespace tessel
