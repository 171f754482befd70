// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/palette.h"
#include "shaders/shaders.h"
#include "support/drawing_test.h"

#include <cmath>
#include <cstdlib>
#include <map>
#include <ostream>
#include <set>

namespace tessel {

void PrintTo(Dither dither, std::ostream* out)
{
    *out << title(dither);
}

namespace {

/// The share of the picture that each colour takes.
std::map<Color, double> shares(const Picture& picture)
{
    std::map<Color, double> found;
    for (std::size_t i = 0; i < picture.pixelCount(); ++i)
        found[colorOf(picture.pixels[i])] += 1.0 / static_cast<double>(picture.pixelCount());
    return found;
}

std::string caseName(const testing::TestParamInfo<Dither>& info)
{
    std::string name(title(info.param));
    std::erase(name, ' ');
    return name;
}

class AnyDither : public DrawingTest, public testing::WithParamInterface<Dither>
{
};

TEST_P(AnyDither, HoldsAsManyColoursAsLevels)
{
    Look look = rampLook();
    look.dither = GetParam();
    look.pixel = 4;
    look.custom = {0x102030, 0x405060, 0x90A0B0, 0xF0E0D0};
    for (int levels = 2; levels <= 16; ++levels) {
        look.levels = static_cast<float>(levels);
        const auto found = shares(draw(look, 1280, 720));
        EXPECT_EQ(found.size(), static_cast<std::size_t>(levels));
        EXPECT_TRUE(found.contains(0x102030)) << "the dark end, levels " << levels;
        EXPECT_TRUE(found.contains(0xF0E0D0)) << "the light end, levels " << levels;
        const bool holdsEveryStop = levels % 3 == 1;
        for (const Color stop : *look.custom)
            EXPECT_TRUE(!holdsEveryStop || found.contains(stop)) << hexText(stop) << ", levels " << levels;
    }
}

TEST_P(AnyDither, ShowsEveryLevel)
{
    Look look;
    look.dither = GetParam();
    std::optional<Picture> before;
    for (int levels = 2; levels <= 16; ++levels) {
        look.levels = static_cast<float>(levels);
        Picture picture = draw(look, 640, 360);
        if (before) {
            std::size_t changed = 0;
            for (std::size_t i = 0; i < picture.pixelCount(); ++i)
                changed += colorOf(picture.pixels[i]) != colorOf(before->pixels[i]) ? 1U : 0U;
            EXPECT_GT(changed, picture.pixelCount() / 20) << levels - 1 << " and " << levels;
        }
        before = std::move(picture);
    }
}

TEST_P(AnyDither, MixesWhatFallsBetweenStopsInOklab)
{
    Look look = rampLook();
    look.dither = GetParam();
    look.custom = {0x0000FF, 0xFFFFFF};
    look.levels = 3;
    std::set<Color> found;
    for (const auto& [color, share] : shares(draw(look, 640, 360)))
        found.insert(color);
    EXPECT_EQ(found, (std::set<Color>{0x0000FF, 0x74A3FF, 0xFFFFFF}));
}

class InkDither : public DrawingTest, public testing::WithParamInterface<Dither>
{
};

/// Not the characters: they share their cells with the ground.
INSTANTIATE_TEST_SUITE_P(Dithers, InkDither,
                         testing::Values(Dither::posterize, Dither::bayer4, Dither::bayer8, Dither::noise,
                                         Dither::halftone, Dither::lines, Dither::diamond, Dither::benday),
                         caseName);

TEST_P(InkDither, GivesEveryColourItsShareOfARamp)
{
    Look look = rampLook();
    look.dither = GetParam();
    look.pixel = 4;
    for (const std::size_t stops : {2U, 3U, 4U, 5U}) {
        look.custom = std::vector<Color>{0x101020, 0x404060, 0x8080A0, 0xC0B0A0, 0xFFF0E0};
        look.custom->resize(stops);
        for (const float levels : {static_cast<float>(stops), 16.0F}) {
            look.levels = levels;
            const double even = 1.0 / static_cast<double>(levels);
            const auto found = shares(draw(look, 1280, 720));
            EXPECT_EQ(found.size(), static_cast<std::size_t>(levels));
            for (const auto& [color, share] : found)
                EXPECT_NEAR(share, even, 0.15 * even)
                    << hexText(color) << " of " << stops << ", levels " << levels;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Dithers, AnyDither, testing::ValuesIn(allDithers().begin() + 1, allDithers().end()),
                         caseName);

class CellDither : public DrawingTest, public testing::WithParamInterface<Dither>
{
};

TEST_P(CellDither, PaintsWholeCells)
{
    Look look;
    look.dither = GetParam();
    const Picture picture = draw(look, 1513, 851); // cells of 8 pixels, the last column and row cut
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x)
            ASSERT_EQ(picture.row(y)[static_cast<std::size_t>(x)],
                      picture.row(y / 8 * 8)[static_cast<std::size_t>(x / 8 * 8)])
                << x << ", " << y;
    }
}

INSTANTIATE_TEST_SUITE_P(Dithers, CellDither,
                         testing::Values(Dither::posterize, Dither::bayer4, Dither::bayer8, Dither::noise),
                         caseName);

using Smooth = DrawingTest;

TEST_F(Smooth, RunsFromTheFirstStopToTheLastWithoutASteppedTone)
{
    Look look = rampLook();
    look.dither = Dither::smooth;
    look.custom = {0x000000, 0xFFFFFF};
    const Picture picture = draw(look, 1024, 16);
    int before = 0;
    for (const std::uint32_t pixel : picture.row(8)) {
        const int grey = static_cast<int>(pixel & 0xFFU);
        EXPECT_GE(grey, before - 2);
        EXPECT_LE(grey, before + 4);
        before = std::max(before, grey);
    }
    EXPECT_LE(picture.row(8).front() & 0xFFU, 2U);
    EXPECT_GE(picture.row(8).back() & 0xFFU, 253U);
}

TEST_F(Smooth, BlendsStopsInOklab)
{
    Look look = greyLook(128);
    look.dither = Dither::smooth;
    look.custom = {0x0000FF, 0xFFFFFF};
    const Picture picture = draw(look, 64, 64);
    // The OKLab midpoint of blue and white, worked out apart from the shader, is 0x74A3FF at tone 0.5.
    const std::uint32_t pixel = picture.row(32)[32];
    EXPECT_NEAR(static_cast<double>((pixel >> 16) & 0xFFU), 0x74, 3);
    EXPECT_NEAR(static_cast<double>((pixel >> 8) & 0xFFU), 0xA3, 3);
    EXPECT_NEAR(static_cast<double>(pixel & 0xFFU), 0xFF, 3);
}

using Tone = DrawingTest;

TEST_F(Tone, ShiftsAlongTheRampWithoutAJump)
{
    Look look = greyLook(163); // 0.64
    look.dither = Dither::posterize;
    look.custom = {0x000000, 0x010101, 0x020202, 0x030303, 0x040404};
    look.levels = 5;
    const auto inkAt = [&](float offset) {
        look.offset = offset;
        return draw(look, 16, 16).pixels[0] & 0xFFU;
    };
    EXPECT_EQ(inkAt(0.0F), 3U);
    EXPECT_EQ(inkAt(0.3F), 4U); // 0.94
    EXPECT_EQ(inkAt(0.5F), 4U); // 1.14 comes back as 0.86
    EXPECT_EQ(inkAt(1.0F), 1U); // 1.64 comes back as 0.36
}

TEST_F(Tone, InvertsAndStretchesAboutTheMiddle)
{
    Look look = greyLook(166); // 0.65
    look.dither = Dither::posterize;
    look.custom = {0x000000, 0x010101, 0x020202, 0x030303, 0x040404};
    EXPECT_EQ(draw(look, 16, 16).pixels[0] & 0xFFU, 3U);
    look.invert = true;
    EXPECT_EQ(draw(look, 16, 16).pixels[0] & 0xFFU, 1U); // 0.35
    look.contrast = 3.0F;
    EXPECT_EQ(draw(look, 16, 16).pixels[0] & 0xFFU, 0U); // 0.05
}

TEST_F(Tone, VignetteDarkensTheCornersOnly)
{
    Look look = greyLook(200);
    look.dither = Dither::smooth;
    look.custom = {0x000000, 0xFFFFFF};
    look.vignette = 1.0F;
    const Picture picture = draw(look, 320, 180);
    EXPECT_LT(picture.row(1)[1] & 0xFFU, 30U);
    EXPECT_GT(picture.row(90)[160] & 0xFFU, 175U);
}

} // namespace
} // namespace tessel
