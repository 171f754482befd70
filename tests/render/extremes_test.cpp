// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look_json.h"
#include "support/drawing_test.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <ostream>

namespace tessel {

void PrintTo(Pattern pattern, std::ostream* out)
{
    *out << title(pattern);
}

namespace {

constexpr int width = 320;
constexpr int height = 180;
constexpr float greatest = std::numeric_limits<float>::max();

/// Every slider far out of range, one by one and all together.
std::vector<Look> extremeLooks()
{
    static constexpr std::array sliders{&Look::pixel,    &Look::levels, &Look::scale, &Look::warp,
                                        &Look::contrast, &Look::offset, &Look::grain, &Look::vignette,
                                        &Look::seed,     &Look::speed};
    std::vector<Look> looks;
    for (const float value : {-greatest, greatest}) {
        Look all;
        for (const auto slider : sliders) {
            Look one;
            one.*slider = all.*slider = value;
            looks.push_back(one);
        }
        looks.push_back(all);
    }
    return looks;
}

std::string named(const Look& look)
{
    return encodeLook(look);
}

double shareOfCommonestColour(const Picture& picture)
{
    std::map<Color, int> counts;
    int most = 0;
    for (std::size_t i = 0; i < picture.pixelCount(); ++i)
        most = std::max(most, ++counts[colorOf(picture.pixels[i])]);
    return most / static_cast<double>(picture.pixelCount());
}

class ExtremeLooks : public DrawingTest, public testing::WithParamInterface<Pattern>
{
};

TEST_P(ExtremeLooks, StillShowSomething)
{
    for (Look look : extremeLooks()) {
        look.pattern = GetParam();
        const auto field =
            renderField(encoder, {.previous = look, .current = look, .width = width, .height = height});
        ASSERT_TRUE(field) << named(look);
        EXPECT_TRUE(std::ranges::all_of(field->tones, [](float tone) { return tone >= 0 && tone <= 1; }))
            << named(look);
        EXPECT_LT(shareOfCommonestColour(draw(look, width, height)), 0.99) << named(look);
    }
}

std::string patternName(const testing::TestParamInfo<Pattern>& pattern)
{
    return std::string(title(pattern.param));
}

INSTANTIATE_TEST_SUITE_P(Patterns, ExtremeLooks, testing::ValuesIn(allPatterns()), patternName);

using ExtremeCells = DrawingTest;

/// What is painted cell by cell, without a GPU, is what a still holds.
TEST_F(ExtremeCells, AreThoseOfTheStill)
{
    for (Look look : extremeLooks()) {
        for (const Dither dither : {Dither::posterize, Dither::bayer4, Dither::bayer8, Dither::noise}) {
            look.dither = dither;
            const Frame frame{.previous = look, .current = look, .width = width, .height = height};
            const float cell = cellSize(look, width, height, frame.reference);
            if (cell <= 1.0F)
                continue; // then there are only pixels, drawn in one way
            const GridSize grid = fieldSize(width, height, cell);
            const Picture still = draw(look, width, height);
            const CellTextures* cells = encoder.encodeCells(frame);
            ASSERT_NE(cells, nullptr) << named(look);
            std::vector<std::uint32_t> colors(cellCount(grid));
            readColors(cells->lowerTarget, grid.width, grid.height, colors.data());
            std::size_t different = 0;
            for (int y = 0; y < height; ++y) {
                const std::uint32_t* row =
                    colors.data() + static_cast<std::ptrdiff_t>(static_cast<float>(y) / cell) * grid.width;
                for (int x = 0; x < width; ++x) {
                    const std::uint32_t color = row[static_cast<int>(static_cast<float>(x) / cell)];
                    different += colorOf(still.row(y)[static_cast<std::size_t>(x)]) != colorOf(color);
                }
            }
            EXPECT_EQ(different, 0U) << named(look);
        }
    }
}

} // namespace
} // namespace tessel
