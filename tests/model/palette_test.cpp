// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/palette.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace tessel {
namespace {

using testing::ElementsAre;

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
    const std::vector<PaletteGroup>& groups = paletteGroups();
    ASSERT_EQ(groups.size(), families.size());
    int next = 12;
    for (std::size_t place = 0; place < groups.size(); ++place) {
        EXPECT_EQ(groups[place].name, families[place].first);
        EXPECT_EQ(groups[place].indices.size(), families[place].second) << groups[place].name;
        for (const int index : groups[place].indices) {
            EXPECT_EQ(index, next++);
        }
    }
    EXPECT_EQ(next, 222);
}

TEST(PaletteName, WrapsPastTheEndOfTheTable)
{
    const std::vector<std::pair<std::int64_t, std::string_view>> names{
        {0, "Ember"},   {112, "Troms\u00F8"}, {221, "Tideline"},
        {222, "Ember"}, {223, "Tide"},        {std::int64_t{222} * 1'000'000'000'000 + 8, "Paper"}};
    for (const auto& [index, name] : names) {
        EXPECT_EQ(paletteName(lookWithPalette(index)), name) << index;
    }
}

TEST(PaletteName, ExtremeIndicesStayInsideTheTable)
{
    const Look last = lookWithPalette(std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(paletteName(last), "Nimbus"); // 2^63 - 1 leaves 79 when divided by 222
    EXPECT_EQ(paletteName(lookWithPalette(-1)), "Ember");
    EXPECT_EQ(paletteName(lookWithPalette(std::numeric_limits<std::int64_t>::min())), "Ember");
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

TEST(ResolveStops, TakesTheBuiltInPaletteAndRepeatsItsLastStop)
{
    const Stops ember = resolveStops(lookWithPalette(222));
    EXPECT_EQ(ember.count, 5);
    EXPECT_THAT(ember.slot, ElementsAre(0x0B0503, 0x5A0E02, 0xE0440E, 0xFFB347, 0xFFF1C9));

    const Stops bloom = resolveStops(lookWithPalette(3));
    EXPECT_EQ(bloom.count, 4);
    EXPECT_THAT(bloom.slot, ElementsAre(0x14020F, 0x6B0F4E, 0xFF4FA3, 0xFFC2DD, 0xFFC2DD));

    const Stops paper = resolveStops(lookWithStops({}));
    EXPECT_EQ(paper.count, 2);
    EXPECT_THAT(paper.slot, ElementsAre(0x1B1B1F, 0xE9E4D8, 0xE9E4D8, 0xE9E4D8, 0xE9E4D8));
}

TEST(ResolveStops, TakesTheFirstFiveOwnStopsInTheirOrder)
{
    const Stops seven = resolveStops(lookWithStops({7, 6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(seven.count, 5);
    EXPECT_THAT(seven.slot, ElementsAre(7, 6, 5, 4, 3));

    const Stops three = resolveStops(lookWithStops({9, 1, 5}));
    EXPECT_EQ(three.count, 3);
    EXPECT_THAT(three.slot, ElementsAre(9, 1, 5, 5, 5));

    const Stops one = resolveStops(lookWithStops({0xABCDEF}));
    EXPECT_EQ(one.count, 2);
    EXPECT_THAT(one.slot, ElementsAre(0xABCDEF, 0xABCDEF, 0xABCDEF, 0xABCDEF, 0xABCDEF));
}

TEST(HexText, HasSixUpperCaseDigits)
{
    EXPECT_EQ(hexText(0), "000000");
    EXPECT_EQ(hexText(0x00000A), "00000A");
    EXPECT_EQ(hexText(0xABCDEF), "ABCDEF");
    EXPECT_EQ(hexText(0xFFFFFF), "FFFFFF");
}

} // namespace
} // namespace tessel
